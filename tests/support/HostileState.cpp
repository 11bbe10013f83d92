#include "support/HostileState.h"

// After gl32.h, whose types it uses.
#include <GLES2/gl2ext.h>

#include <random>

namespace {

constexpr GLuint kUnits = 8;

/// Takes the first choice with seed 0, and any choice with other seeds.
class Choices {
public:
    explicit Choices(unsigned seed) : seed_(seed), random_(seed) {}

    template <typename T>
    T of(std::vector<T> choices) {
        return choices[seed_ == 0 ? 0 : random_() % choices.size()];
    }
    GLenum of(GLenum first, GLuint count) {
        return first + (seed_ == 0 ? 0 : static_cast<GLenum>(random_() % count));
    }
    bool yes() { return of<int>({1, 0}) != 0; }
    GLfloat part() { return static_cast<GLfloat>(of(1, 8)) / 8.0F; }

private:
    unsigned seed_;
    std::mt19937 random_;
};

GLuint Shader(GLenum stage, const char* text) {
    const GLuint shader = glCreateShader(stage);
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    return shader;
}

void SetTests(Choices& choices) {
    for (const GLenum capability :
         {GL_BLEND, GL_SCISSOR_TEST, GL_DEPTH_TEST, GL_CULL_FACE, GL_STENCIL_TEST, GL_DITHER,
          GL_POLYGON_OFFSET_FILL, GL_SAMPLE_COVERAGE, GL_SAMPLE_ALPHA_TO_COVERAGE,
          GL_PRIMITIVE_RESTART_FIXED_INDEX}) {
        (choices.yes() ? glEnable : glDisable)(capability);
    }
    glScissor(1, 2, choices.of<int>({3, 900}), 4);
    glDepthFunc(choices.of(GL_NEVER, 8));
    glDepthMask(choices.yes() ? GL_FALSE : GL_TRUE);
    glDepthRangef(choices.part(), choices.part());
    glCullFace(choices.of<GLenum>({GL_FRONT_AND_BACK, GL_FRONT, GL_BACK}));
    glFrontFace(choices.of(GL_CW, 2));
    glStencilFunc(choices.of(GL_NEVER, 8), 0, choices.of(0, 4));
    glStencilMask(choices.of(1, 9));
    glPolygonOffset(choices.part(), choices.part());
    glViewport(5, 6, choices.of<int>({7, 700}), 8);
    glClearColor(choices.part(), choices.part(), choices.part(), choices.part());
}

void SetBlending(Choices& choices) {
    for (GLuint buffer = 0; buffer < 3; ++buffer) {
        (choices.yes() ? glEnablei : glDisablei)(GL_BLEND, buffer);
        glBlendEquationSeparatei(buffer, choices.of<GLenum>({GL_FUNC_SUBTRACT, GL_MIN}),
                                 choices.of<GLenum>({GL_MAX, GL_FUNC_ADD}));
        glBlendFuncSeparatei(buffer, choices.of<GLenum>({GL_ZERO, GL_DST_COLOR}),
                             choices.of<GLenum>({GL_ONE_MINUS_SRC_ALPHA, GL_ONE}),
                             choices.of<GLenum>({GL_DST_ALPHA, GL_ZERO}),
                             choices.of<GLenum>({GL_ONE, GL_SRC_COLOR}));
    }
    glBlendColor(choices.part(), choices.part(), choices.part(), choices.part());
}

}  // namespace

HostileState::HostileState(unsigned seed) : seed_(seed), program_(glCreateProgram()) {
    glGenTextures(2, &textures_[1]);
    glGenBuffers(1, &buffer_);
    glBindBuffer(GL_COPY_READ_BUFFER, buffer_);
    glBufferData(GL_COPY_READ_BUFFER, 64, nullptr, GL_STATIC_DRAW);
    glGenFramebuffers(2, framebuffers_);
    glGenVertexArrays(1, &vertexArray_);
    glGenSamplers(1, &sampler_);
    glAttachShader(program_, Shader(GL_VERTEX_SHADER, "void main() { gl_Position = vec4(2); }"));
    glAttachShader(program_, Shader(GL_FRAGMENT_SHADER, "void main() { discard; }"));
    glLinkProgram(program_);
}

void HostileState::Set() const {
    Choices choices(seed_);
    SetTests(choices);
    SetBlending(choices);
    for (GLuint unit = 0; unit < kUnits; ++unit) {
        glActiveTexture(GL_TEXTURE0 + unit);
        glBindTexture(GL_TEXTURE_2D, choices.of<GLuint>({textures_[1], 0}));
        glBindTexture(GL_TEXTURE_EXTERNAL_OES, choices.of<GLuint>({0, textures_[2]}));
        glBindSampler(unit, unit < 3 ? 0 : sampler_);
    }
    glActiveTexture(choices.of<GLenum>({GL_TEXTURE5, GL_TEXTURE0, GL_TEXTURE1, GL_TEXTURE2}));
    for (const GLenum target :
         {GL_ARRAY_BUFFER, GL_COPY_WRITE_BUFFER, GL_UNIFORM_BUFFER, GL_TRANSFORM_FEEDBACK_BUFFER}) {
        glBindBuffer(target, choices.of<GLuint>({buffer_, 0}));
    }
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glUseProgram(choices.of<GLuint>({program_, 0}));
    for (const GLuint array : {GLuint{0}, vertexArray_}) {
        glBindVertexArray(array);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, choices.of<GLuint>({buffer_, 0}));
        (choices.yes() ? glEnableVertexAttribArray : glDisableVertexAttribArray)(3);
        glEnableVertexAttribArray(choices.of(12, 4));
    }
    glBindVertexArray(choices.of<GLuint>({vertexArray_, 0}));
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, choices.of<GLuint>({framebuffers_[0], 0}));
    glBindFramebuffer(GL_READ_FRAMEBUFFER, choices.of<GLuint>({framebuffers_[1], 0}));
}

void HostileState::SetUnpacking() const {
    Set();
    BindUnpackBuffer();
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
}
