#pragma once

#include "BareObjects.h"
#include "FrameCase.h"

/// The least GL code that draws frames at once: an upload from memory, a clear and a quad.
///
/// Its GL objects live as long as their context.
class DirectRenderer {
public:
    /// \param scale  how much larger the picture is than the output.
    /// \param filter GL_NEAREST or GL_LINEAR.
    DirectRenderer(const FrameCase& frame, float scale, GLint filter = GL_NEAREST);

    void draw(const void* pixels) const;

    GLuint target() const { return target_; }

private:
    FrameCase frame_;
    GLuint source_;
    GLuint target_;
    GLuint framebuffer_;
    GLuint program_;
    GLuint picture_;  ///< A vertex array.
};
