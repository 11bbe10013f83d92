#include "support/GlSnapshot.h"

// After gl3.h, whose types it uses.
#include <GLES2/gl2ext.h>

namespace {

struct Query {
    const char* name;
    GLenum value;
};

#define QUERY(name) \
    Query {         \
#name, name \
    }

// clang-format off
constexpr Query kState[] = {
    QUERY(GL_ACTIVE_TEXTURE), QUERY(GL_CURRENT_PROGRAM), QUERY(GL_VERTEX_ARRAY_BINDING),
    QUERY(GL_DRAW_FRAMEBUFFER_BINDING), QUERY(GL_READ_FRAMEBUFFER_BINDING),
    QUERY(GL_RENDERBUFFER_BINDING), QUERY(GL_ARRAY_BUFFER_BINDING),
    QUERY(GL_ELEMENT_ARRAY_BUFFER_BINDING), QUERY(GL_PIXEL_UNPACK_BUFFER_BINDING),
    QUERY(GL_PIXEL_PACK_BUFFER_BINDING), QUERY(GL_COPY_READ_BUFFER_BINDING),
    QUERY(GL_COPY_WRITE_BUFFER_BINDING), QUERY(GL_UNIFORM_BUFFER_BINDING),
    QUERY(GL_UNPACK_ALIGNMENT), QUERY(GL_UNPACK_ROW_LENGTH), QUERY(GL_UNPACK_SKIP_ROWS),
    QUERY(GL_UNPACK_SKIP_PIXELS), QUERY(GL_UNPACK_IMAGE_HEIGHT), QUERY(GL_UNPACK_SKIP_IMAGES),
    QUERY(GL_PACK_ALIGNMENT), QUERY(GL_PACK_ROW_LENGTH), QUERY(GL_VIEWPORT),
    QUERY(GL_BLEND), QUERY(GL_BLEND_SRC_RGB), QUERY(GL_BLEND_DST_RGB), QUERY(GL_BLEND_SRC_ALPHA),
    QUERY(GL_BLEND_DST_ALPHA), QUERY(GL_BLEND_EQUATION_RGB), QUERY(GL_BLEND_EQUATION_ALPHA),
    QUERY(GL_BLEND_COLOR), QUERY(GL_SCISSOR_TEST), QUERY(GL_SCISSOR_BOX), QUERY(GL_DEPTH_TEST),
    QUERY(GL_DEPTH_FUNC), QUERY(GL_DEPTH_WRITEMASK), QUERY(GL_DEPTH_RANGE),
    QUERY(GL_DEPTH_CLEAR_VALUE), QUERY(GL_CULL_FACE), QUERY(GL_CULL_FACE_MODE), QUERY(GL_FRONT_FACE),
    QUERY(GL_STENCIL_TEST), QUERY(GL_STENCIL_FUNC), QUERY(GL_STENCIL_REF),
    QUERY(GL_STENCIL_WRITEMASK), QUERY(GL_COLOR_WRITEMASK), QUERY(GL_COLOR_CLEAR_VALUE),
    QUERY(GL_DITHER), QUERY(GL_POLYGON_OFFSET_FILL), QUERY(GL_SAMPLE_COVERAGE),
    QUERY(GL_SAMPLE_ALPHA_TO_COVERAGE), QUERY(GL_RASTERIZER_DISCARD),
    QUERY(GL_PRIMITIVE_RESTART_FIXED_INDEX), QUERY(GL_LINE_WIDTH)};
constexpr Query kUnitState[] = {
    QUERY(GL_TEXTURE_BINDING_2D), QUERY(GL_TEXTURE_BINDING_EXTERNAL_OES),
    QUERY(GL_TEXTURE_BINDING_CUBE_MAP), QUERY(GL_TEXTURE_BINDING_3D), QUERY(GL_SAMPLER_BINDING)};
// clang-format on

#undef QUERY

constexpr GLenum kUnits = 8;

std::vector<GLint> Read(GLenum name) {
    std::vector<GLint> values(4);
    glGetIntegerv(name, values.data());
    return values;
}

GLuint Shader(GLenum stage, const char* text) {
    const GLuint shader = glCreateShader(stage);
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    return shader;
}

}  // namespace

GlSnapshot::GlSnapshot() {
    for (const Query& query : kState) {
        values_[query.name] = Read(query.value);
    }
    ReadUnits();
}

void GlSnapshot::ReadUnits() {
    for (GLenum unit = 0; unit < kUnits; ++unit) {
        glActiveTexture(GL_TEXTURE0 + unit);
        for (const Query& query : kUnitState) {
            values_[query.name + (" " + std::to_string(unit))] = Read(query.value);
        }
    }
    glActiveTexture(static_cast<GLenum>(values_["GL_ACTIVE_TEXTURE"].front()));
}

StateNames GlSnapshot::ChangedSince(const GlSnapshot& earlier) const {
    StateNames changed;
    for (const auto& [name, value] : values_) {
        if (value != earlier.values_.at(name)) {
            changed.insert(name);
        }
    }
    return changed;
}

HostileState::HostileState() : program_(glCreateProgram()) {
    glGenTextures(1, &texture_);
    glGenBuffers(1, &buffer_);
    glGenFramebuffers(1, &framebuffer_);
    glGenVertexArrays(1, &vertexArray_);
    glAttachShader(program_, Shader(GL_VERTEX_SHADER, "void main() { gl_Position = vec4(2); }"));
    glAttachShader(program_, Shader(GL_FRAGMENT_SHADER, "void main() { discard; }"));
    glLinkProgram(program_);
}

void HostileState::Set() const {
    for (GLenum unit = 0; unit < kUnits; ++unit) {
        glActiveTexture(GL_TEXTURE0 + unit);
        glBindTexture(GL_TEXTURE_2D, texture_);
        glBindTexture(GL_TEXTURE_EXTERNAL_OES, 0);
    }
    glActiveTexture(GL_TEXTURE5);
    glBindBuffer(GL_ARRAY_BUFFER, buffer_);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glEnable(GL_BLEND);
    glBlendEquationSeparate(GL_FUNC_SUBTRACT, GL_MAX);
    glBlendFuncSeparate(GL_ZERO, GL_ONE_MINUS_SRC_ALPHA, GL_DST_ALPHA, GL_ONE);
    glEnable(GL_SCISSOR_TEST);
    glScissor(1, 2, 3, 4);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_NEVER);
    glDepthMask(GL_FALSE);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_FRONT_AND_BACK);
    glEnable(GL_STENCIL_TEST);
    glStencilFunc(GL_NEVER, 0, 0);
    glViewport(5, 6, 7, 8);
    glUseProgram(program_);
    glBindVertexArray(vertexArray_);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
}

void HostileState::SetUnpacking() const {
    Set();
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer_);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
}

StateNames ChangedByDraw(StateNames more) {
    more.insert({"GL_ACTIVE_TEXTURE", "GL_CURRENT_PROGRAM", "GL_DRAW_FRAMEBUFFER_BINDING",
                 "GL_READ_FRAMEBUFFER_BINDING", "GL_STENCIL_TEST", "GL_TEXTURE_BINDING_2D 1",
                 "GL_VERTEX_ARRAY_BINDING", "GL_VIEWPORT"});
    return more;
}
