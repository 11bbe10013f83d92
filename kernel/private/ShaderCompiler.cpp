#include "kernel/private/ShaderCompiler.h"

#include <cstring>

#include "kernel/StringUtils.h"

namespace OVR {
namespace {

using StringUtils::Va;

constexpr GLsizei kInfoLogSize = 1024;

// With these prefixes sources of version 100 and of version 300 both compile: below version 300
// they map new keywords to old ones, else old ones to new ones.
//
// Frozen: shader prefixes
constexpr char kVertexPrefix[] =
    "\n"
    "#ifndef DISABLE_MULTIVIEW\n"
    " #define DISABLE_MULTIVIEW 0\n"
    "#endif\n"
    "#define NUM_VIEWS 2\n"
    "#if __VERSION__ < 300\n"
    "  #define in attribute\n"
    "  #define out varying\n"
    "#else\n"
    "  #define attribute in\n"
    "  #define varying out\n"
    "#endif\n"
    "#if defined( GL_OVR_multiview2 ) && ! DISABLE_MULTIVIEW && __VERSION__ >= 300\n"
    "  #extension GL_OVR_multiview2 : require\n"
    "  layout(num_views=NUM_VIEWS) in;\n"
    "  #define VIEW_ID gl_ViewID_OVR\n"
    "#else\n"
    "  uniform lowp int ViewID;\n"
    "  #define VIEW_ID ViewID\n"
    "#endif\n"
    "\n"
    "uniform highp mat4 ModelMatrix;\n"
    "#if __VERSION__ >= 300\n"
    "// Use a ubo in v300 path to workaround corruption issue on Adreno 420+v300\n"
    "// when uniform array of matrices used.\n"
    "uniform SceneMatrices\n"
    "{\n"
    "\thighp mat4 ViewMatrix[NUM_VIEWS];\n"
    "\thighp mat4 ProjectionMatrix[NUM_VIEWS];\n"
    "} sm;\n"
    "// Use a function macro for TransformVertex to workaround an issue on exynos8890+Android-M "
    "driver:\n"
    "// gl_ViewID_OVR outside of the vertex main block causes VIEW_ID to be 0 for every view.\n"
    "//highp vec4 TransformVertex( highp vec4 oPos )\n"
    "//{\n"
    "//\thighp vec4 hPos = sm.ProjectionMatrix[VIEW_ID] * ( sm.ViewMatrix[VIEW_ID] * ( ModelMatrix "
    "* oPos ) );\n"
    "//\treturn hPos;\n"
    "#define TransformVertex(localPos) (sm.ProjectionMatrix[VIEW_ID] * ( sm.ViewMatrix[VIEW_ID] * "
    "( ModelMatrix * localPos )))\n"
    "#else\n"
    "// Still support v100 for image_external as v300 support is lacking in Mali-T760/Android-L "
    "drivers.\n"
    "uniform highp mat4 ViewMatrix[NUM_VIEWS];\n"
    "uniform highp mat4 ProjectionMatrix[NUM_VIEWS];\n"
    "highp vec4 TransformVertex( highp vec4 oPos )\n"
    "{\n"
    "\thighp vec4 hPos = ProjectionMatrix[VIEW_ID] * ( ViewMatrix[VIEW_ID] * ( ModelMatrix * oPos "
    ") );\n"
    "\treturn hPos;\n"
    "}\n"
    "#endif\n";

constexpr char kFragmentPrefix[] =
    "\n"
    "#if __VERSION__ < 300\n"
    "\t#define in varying\n"
    "#else\n"
    "\t#define varying in\n"
    "\t#define gl_FragColor fragColor\n"
    "\tout mediump vec4 fragColor;\n"
    "\t#define texture2D texture\n"
    "\t#define textureCube texture\n"
    "#endif\n";

const char* SkipVersionLine(const char* source) {
    static constexpr char kVersion[] = "#version ";
    if (std::strncmp(source, kVersion, sizeof(kVersion) - 1) != 0) {
        return source;
    }
    const char* newline = std::strchr(source, '\n');
    return newline != nullptr ? newline + 1 : source + std::strlen(source);
}

const char* StagePrefix(GLenum type) {
    switch (type) {
        case GL_VERTEX_SHADER: return kVertexPrefix;
        case GL_FRAGMENT_SHADER: return kFragmentPrefix;
        default: return "";
    }
}

}  // namespace

String AssembleShader(GLenum type, const char* directives, const char* source, int version,
                      bool useMultiview) {
    String text;
    text.Append(Va("#version %d %s\n", version, version > 100 ? "es" : ""));
    if (directives != nullptr) {
        text.Append(directives);
    }
    text.Append(Va("#define DISABLE_MULTIVIEW %d\n", useMultiview ? 0 : 1));
    text.Append(StagePrefix(type));
    text.Append(SkipVersionLine(source));
    return text;
}

uint32_t CompileShader(GLenum type, const String& text) {
    const char* lines = text.ToCStr();
    const GLuint shader = GLES3::glCreateShader(type);
    GLES3::glShaderSource(shader, 1, &lines, nullptr);
    GLES3::glCompileShader(shader);
    if (!Succeeded(shader, GL_COMPILE_STATUS, GLES3::glGetShaderiv, GLES3::glGetShaderInfoLog)) {
        GLES3::glDeleteShader(shader);
        return 0;
    }
    return shader;
}

bool Succeeded(GLuint name, GLenum status, PFNGLGETSHADERIVPROC getParameter,
               PFNGLGETSHADERINFOLOGPROC getInfoLog) {
    GLint succeeded = GL_FALSE;
    getParameter(name, status, &succeeded);
    if (succeeded == GL_FALSE) {
        char infoLog[kInfoLogSize];  // Frozen: unused info logs
        getInfoLog(name, kInfoLogSize, nullptr, infoLog);
    }
    return succeeded != GL_FALSE;
}

}  // namespace OVR
