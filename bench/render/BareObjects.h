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
/// \param filter GL_NEAREST or GL_LINEAR.
/// \return a texture with clamped edges. Leaves texture 0 bound.
GLuint MakeTexture(GLenum format, int width, int height, const void* pixels,
                   GLint filter = GL_NEAREST);

/// \return a framebuffer that draws into \p texture. Leaves it bound.
GLuint MakeFramebuffer(GLuint texture);

/// How much larger the library's initial view shows a picture than the output: cot(47° / 2), seen
/// from distance 2.
constexpr float kInitialScale = 2.2998426F / 2;

/// Samplers "source", "mask" and "sticker" read texture units 0, 1 and 2. Leaves the program used.
GLuint MakeProgram(ShaderKind kind, bool masked, float scale = kInitialScale);

/// A quad whose image has its first row at y = \p first. Leaves its vertex array bound.
BareQuad MakeQuad(float left, float right, float first, float last);
void DrawBoundQuad();
void FreeQuad(const BareQuad& quad);
