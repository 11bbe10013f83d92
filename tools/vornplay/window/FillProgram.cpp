#include "window/FillProgram.h"

#include <array>
#include <string>

#include "support/ToolError.h"

namespace {

/// One triangle that covers the viewport.
constexpr char kVertexShader[] = R"(#version 300 es
void main() {
    vec2 corner = vec2(gl_VertexID & 1, gl_VertexID >> 1);
    gl_Position = vec4(corner * 4.0 - 1.0, 0.0, 1.0);
}
)";

void AttachShader(GLuint program, GLenum type, const char* text) {
    const GLuint shader = glCreateShader(type);
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    glAttachShader(program, shader);
    glDeleteShader(shader);  // When the program is.
}

}  // namespace

FillProgram::FillProgram(const char* fragmentShader) : name_(glCreateProgram()) {
    AttachShader(name_, GL_VERTEX_SHADER, kVertexShader);
    AttachShader(name_, GL_FRAGMENT_SHADER, fragmentShader);
    glLinkProgram(name_);
    GLint linked = GL_FALSE;
    glGetProgramiv(name_, GL_LINK_STATUS, &linked);
    if (linked == GL_FALSE) {
        std::array<char, 512> log{};
        glGetProgramInfoLog(name_, log.size(), nullptr, log.data());
        glDeleteProgram(name_);
        throw ToolError(std::string("the window's shaders do not link: ") + log.data());
    }
}
