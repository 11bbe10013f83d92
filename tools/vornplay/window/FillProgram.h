#pragma once

#include <GLES3/gl3.h>

/// A program that fills the viewport by a fragment shader.
class FillProgram {
public:
    /// \throws ToolError
    explicit FillProgram(const char* fragmentShader);
    ~FillProgram() { glDeleteProgram(name_); }
    FillProgram(const FillProgram&) = delete;
    FillProgram& operator=(const FillProgram&) = delete;

    void Use() const { glUseProgram(name_); }
    GLint Uniform(const char* name) const { return glGetUniformLocation(name_, name); }
    /// Draws with the program in use.
    static void Fill() { glDrawArrays(GL_TRIANGLES, 0, 3); }

private:
    GLuint name_;
};
