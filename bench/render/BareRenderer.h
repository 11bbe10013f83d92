#pragma once

#include "BareObjects.h"
#include "FrameCase.h"
#include "render/VEStickerList.h"

/// The least GL code that draws a stream like the library: the same uploads, clear and draws. It
/// saves, restores and checks no state.
///
/// Its GL objects live as long as their context.
class BareRenderer {
public:
    /// \param kind the lean shader cannot draw stickers over masked pictures.
    BareRenderer(const FrameCase& frame, ShaderKind kind, GLuint stickerTexture);

    /// Draws the frame of the call before.
    /// \param mask read if the case has a mask.
    void draw(const void* pixels, const void* mask, const VEStickerList& stickers);

    GLuint target() const { return target_; }

private:
    /// A texture fed through two pixel-unpack buffers in turn.
    struct Stream {
        GLuint texture = 0;
        GLuint buffers[2] = {0, 0};
        int next = 0;
    };

    Stream makeStream() const;
    void upload(Stream& stream, const void* pixels) const;
    void drawPicture() const;
    void drawStickers(const VEStickerList& stickers) const;

    FrameCase frame_;
    GLenum stickerUnit_;
    GLuint stickerTexture_;
    GLuint target_;
    GLuint framebuffer_ = 0;
    GLuint program_;
    GLint isSticker_;  ///< Location of the uniform.
    GLuint picture_;   ///< Vertex array of the picture.
    Stream source_;
    Stream mask_;
};
