#include "Programs.h"

#include <android/log.h>

#include "Failure.h"
#include "gl/GLES3.h"
#include "render/VELog.h"

namespace {

constexpr char kSourceFile[] = "src/Render/Guarded/Programs.cpp";

constexpr char kPictureVertexShader[] =
    "attribute vec2 Vertex;\n"
    "uniform mat4 View;\n"
    "uniform mat4 Place;\n"
    "varying highp vec2 sourcePlace;\n"
    "varying highp vec2 maskPlace;\n"
    "void main() {\n"
    "    vec2 place = Vertex * 0.5 + 0.5;\n"
    "    gl_Position = View * vec4(Vertex, 0.0, 1.0);\n"
    "    sourcePlace = (Place * vec4(place, 0.0, 1.0)).xy;\n"
    "    maskPlace = vec2(place.x, 1.0 - place.y);\n"
    "}\n";

constexpr char kExternalSource[] =
    "#extension GL_OES_EGL_image_external : require\n"
    "#define SourceSampler samplerExternalOES\n";
constexpr char k2DSource[] = "#define SourceSampler sampler2D\n";

// Colors are highp throughout: Mesa's software GL takes lower precisions literally, and converts
// each color to 16-bit floats and back.
constexpr char kPictureShader[] =
    "uniform highp SourceSampler Source;\n"
    "varying highp vec2 sourcePlace;\n"
    "void main() {\n"
    "    gl_FragColor = texture2D(Source, sourcePlace);\n"
    "}\n";

// The mask's rows are turned here, not in the vertices: all renderers round alike, so that they
// choose the same texel of a mask that is sampled on the edges of its texels.
constexpr char kMaskedShader[] =
    "uniform highp SourceSampler Source;\n"
    "uniform highp sampler2D Mask;\n"
    "varying highp vec2 sourcePlace;\n"
    "varying highp vec2 maskPlace;\n"
    "const highp vec4 kKeyed = vec4(169.0 / 255.0, 210.0 / 255.0, 216.0 / 255.0, 0.0);\n"
    "void main() {\n"
    "    highp vec4 color = texture2D(Source, sourcePlace);\n"
    "    highp vec4 mask = texture2D(Mask, vec2(maskPlace.x, 1.0 - maskPlace.y));\n"
    "    bool keyed = mask.r == 0.0 && mask.g == 0.0 && mask.b == 0.0;\n"
    "    gl_FragColor = keyed ? kKeyed : vec4(color.rgb, mask.a);\n"
    "}\n";

constexpr char kStickerVertexShader[] =
    "attribute vec4 Vertex;\n"
    "uniform mat4 View;\n"
    "varying highp vec2 place;\n"
    "void main() {\n"
    "    gl_Position = View * vec4(Vertex.xy, 0.0, 1.0);\n"
    "    place = Vertex.zw;\n"
    "}\n";

constexpr char kStickerShader[] =
    "uniform highp sampler2D Sticker;\n"
    "varying highp vec2 place;\n"
    "void main() {\n"
    "    gl_FragColor = texture2D(Sticker, place);\n"
    "}\n";

/// A shader of language version 100, in which external textures work everywhere.
uint32_t Compile(GLenum stage, const char* head, const char* body) {
    const char* const parts[] = {"#version 100\n", head, body};
    const GLuint shader = GLES3::glCreateShader(stage);
    GLES3::glShaderSource(shader, 3, parts, nullptr);
    GLES3::glCompileShader(shader);
    return shader;
}

/// \return whether \p program is linked; otherwise the reason is logged.
bool IsLinked(GLuint program) {
    GLint linked = GL_FALSE;
    GLES3::glGetProgramiv(program, GL_LINK_STATUS, &linked);
    if (linked == GL_FALSE) {
        char reason[256] = "";
        GLES3::glGetProgramInfoLog(program, sizeof(reason), nullptr, reason);
        LogWithFileTag(ANDROID_LOG_INFO, kSourceFile, "GL refused a program: %s", reason);
    }
    return linked != GL_FALSE;
}

uint32_t Build(GLNames& names, const char* vertexShader, const char* fragmentHead,
               const char* fragmentShader) {
    const GLuint vertex = Compile(GL_VERTEX_SHADER, "", vertexShader);
    const GLuint fragment = Compile(GL_FRAGMENT_SHADER, fragmentHead, fragmentShader);
    const GLuint program = GLES3::glCreateProgram();
    GLES3::glAttachShader(program, vertex);
    GLES3::glAttachShader(program, fragment);
    GLES3::glBindAttribLocation(program, 0, "Vertex");
    GLES3::glLinkProgram(program);
    for (const GLuint shader : {vertex, fragment}) {
        GLES3::glDetachShader(program, shader);
        GLES3::glDeleteShader(shader);
    }
    if (!IsLinked(program)) {
        GLES3::glDeleteProgram(program);
        throw Failure{VE_ERROR_GL};
    }
    names.keepProgram(program);
    return program;
}

void SetMatrix(int32_t location, const OVR::Matrix4<float>& matrix) {
    GLES3::glUniformMatrix4fv(location, 1, GL_FALSE, &matrix.M[0][0]);
}

}  // namespace

void PictureProgram::build(GLNames& names, bool externalSource, bool masked) {
    if (program_ != 0) {
        return;
    }
    program_ = Build(names, kPictureVertexShader, externalSource ? kExternalSource : k2DSource,
                     masked ? kMaskedShader : kPictureShader);
    view_ = GLES3::glGetUniformLocation(program_, "View");
    place_ = GLES3::glGetUniformLocation(program_, "Place");
    if (masked) {  // The source is on unit 0 without a word.
        GLES3::glUseProgram(program_);
        GLES3::glUniform1i(GLES3::glGetUniformLocation(program_, "Mask"), 1);
    }
}

void PictureProgram::use(const OVR::Matrix4<float>& view, const OVR::Matrix4<float>& place) const {
    GLES3::glUseProgram(program_);
    SetMatrix(view_, view);
    SetMatrix(place_, place);
}

void StickerProgram::build(GLNames& names) {
    if (program_ == 0) {
        program_ = Build(names, kStickerVertexShader, "", kStickerShader);
        view_ = GLES3::glGetUniformLocation(program_, "View");
    }
}

void StickerProgram::use(const OVR::Matrix4<float>& view) const {
    GLES3::glUseProgram(program_);
    SetMatrix(view_, view);
}
