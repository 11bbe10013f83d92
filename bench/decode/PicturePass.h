#pragma once

#include <vector>

#include "Clip.h"
#include "render/BareObjects.h"

/// The least code that draws a decoded picture: libyuv, one upload, one draw. It saves, restores
/// and checks no state.
///
/// Its GL objects live as long as their context.
class PicturePass {
public:
    PicturePass(const Clip& clip, ShaderKind kind);

    /// \param pixels receives the picture as RGBA. Needs no context.
    void convert(const AVFrame& frame, std::vector<unsigned char>& pixels) const;
    /// glFinish included.
    void draw(const std::vector<unsigned char>& pixels) const;

    GLuint target() const { return target_; }

private:
    int width_;
    int height_;
    GLuint source_;
    GLuint target_;
    GLuint framebuffer_;
    GLuint program_;
    GLint isSticker_;  ///< Location of the uniform.
    GLuint picture_;   ///< A vertex array.
};
