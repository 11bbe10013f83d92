#pragma once

#include "gl/GLES3.h"
#include "support/Image.h"

/// A framebuffer with depth and four samples a pixel.
class Target {
public:
    /// \throws ToolError when GL has none of this size
    explicit Target(Size size);
    ~Target();
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;

    void Bind() const;
    Image Read() const;

private:
    Size size_;
    GLuint framebuffers_[2] = {};   ///< Samples and pixels.
    GLuint renderbuffers_[3] = {};  ///< Samples' colour and depth, pixels' colour.
};
