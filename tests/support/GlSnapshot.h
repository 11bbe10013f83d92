#pragma once

#include <GLES3/gl32.h>

#include <map>
#include <string>
#include <vector>

/// By names such as "GL_DITHER", or "GL_TEXTURE_BINDING_2D, unit 5" for texture unit 5.
using StateValues = std::map<std::string, std::vector<GLint>>;

/// The state of the current context, as far as drawing could change it. Needs OpenGL ES 3.2.
class GlSnapshot {
public:
    /// Of vertex arrays, includes array 0 and the one that is bound now.
    GlSnapshot();
    explicit GlSnapshot(GLuint vertexArray);

    /// The state now, with the same vertex arrays as this one.
    GlSnapshot again() const { return GlSnapshot(vertexArray_); }

    const StateValues& values() const { return values_; }

private:
    void readUnits();
    void readDrawBuffers();
    void readVertexArray(GLuint array);

    GLuint vertexArray_;
    StateValues values_;
};
