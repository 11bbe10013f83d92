#include "kernel/ShaderCompiler.h"

#include <cstring>

#include "kernel/ShaderPrefix.h"
#include "kernel/String.h"
#include "kernel/StringUtils.h"

namespace OVR {
namespace {

using StringUtils::Va;

constexpr GLsizei kInfoLogSize = 1024;

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

String AssembleSource(GLenum type, const char* directives, const char* source, int version,
                      bool useMultiview) {
    String text;
    // Version 100 has no profile word; the blank in front of it stays.
    text.Append(Va("#version %d %s\n", version, version > 100 ? "es" : ""));
    if (directives != nullptr) {
        text.Append(directives);
    }
    text.Append(Va("#define DISABLE_MULTIVIEW %d\n", useMultiview ? 0 : 1));
    text.Append(StagePrefix(type));
    text.Append(SkipVersionLine(source));
    return text;
}

}  // namespace

uint32_t CompileShader(GLenum type, const char* directives, const char* source, int version,
                       bool useMultiview) {
    const String text = AssembleSource(type, directives, source, version, useMultiview);
    const char* lines = text.ToCStr();

    const GLuint shader = GLES3::glCreateShader(type);
    GLES3::glShaderSource(shader, 1, &lines, nullptr);
    GLES3::glCompileShader(shader);
    GLint compiled = GL_FALSE;
    GLES3::glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled == GL_FALSE) {
        // Fetched and dropped: failures of the kernel are values, never log lines. The log stays
        // within reach of a recorder in front of the entry point.
        char infoLog[kInfoLogSize];
        GLES3::glGetShaderInfoLog(shader, kInfoLogSize, nullptr, infoLog);
        GLES3::glDeleteShader(shader);
        return 0;
    }
    return shader;
}

}  // namespace OVR
