#pragma once

#include <GLES3/gl3.h>

enum class ShaderKind {
    kEquivalent,  ///< Does the same as the library's shader.
    kLean,        ///< Draws the same picture with the least work.
};

/// A mesh of two triangles, with its buffers and its vertex array.
struct BareQuad {
    GLuint vertexArray = 0;
    GLuint buffers[2] = {0, 0};  ///< Vertices and indices.
};

/// \param format GL_RGB or GL_RGBA.
/// \param pixels may be null.
/// \return a texture with GL_NEAREST filters and clamped edges. Leaves texture 0 bound.
GLuint MakeTexture(GLenum format, int width, int height, const void* pixels);

/// Samplers "source", "mask" and "sticker" read texture units 0, 1 and 2. Leaves the program used.
GLuint MakeProgram(ShaderKind kind, bool masked);

/// A quad whose image has its first row at y = \p first. Leaves its vertex array bound.
BareQuad MakeQuad(float left, float right, float first, float last);
void DrawBoundQuad();
void FreeQuad(const BareQuad& quad);
