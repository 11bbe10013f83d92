#pragma once

#include "gl/GLES3.h"
#include "support/Image.h"

/// A framebuffer with depth and four samples per pixel.
class Target {
public:
    /// \throws ToolError if the GL has no framebuffer of this size
    explicit Target(Size size);
    ~Target();
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;

    void Bind() const;
    Image Read() const;

private:
    Size size_;
    GLuint framebuffers_[2] = {};   ///< For samples and for pixels.
    GLuint renderbuffers_[3] = {};  ///< Color and depth of the samples, color of the pixels.
};
