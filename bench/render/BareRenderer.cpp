#include "BareRenderer.h"

#include <cstring>

BareRenderer::BareRenderer(const FrameCase& frame, ShaderKind kind, GLuint stickerTexture)
    : frame_(frame),
      stickerUnit_(kind == ShaderKind::kLean ? GL_TEXTURE0 : GL_TEXTURE2),
      stickerTexture_(stickerTexture),
      target_(MakeTexture(GL_RGBA, frame.width, frame.height, nullptr)),
      program_(MakeProgram(kind, frame.masked)),
      isSticker_(glGetUniformLocation(program_, "isSticker")),
      picture_(MakeQuad(-1, 1, -1, 1).vertexArray),
      source_(makeStream()) {
    if (frame.masked) {
        mask_ = makeStream();
    }
    framebuffer_ = MakeFramebuffer(target_);
    glBindVertexArray(0);
}

void BareRenderer::draw(const void* pixels, const void* mask, const VEStickerList& stickers) {
    glActiveTexture(GL_TEXTURE0);
    upload(source_, pixels);
    if (frame_.masked) {
        glActiveTexture(GL_TEXTURE1);
        upload(mask_, mask);
    }
    drawPicture();
    if (!stickers.empty()) {
        drawStickers(stickers);
    }
    glBindVertexArray(0);  // The library unbinds the index buffer of the array that is bound.
}

void BareRenderer::drawPicture() const {
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
    glViewport(0, 0, frame_.width, frame_.height);
    glClear(GL_COLOR_BUFFER_BIT);
    glUseProgram(program_);
    glUniform1i(isSticker_, 0);
    glBindVertexArray(picture_);
    DrawBoundQuad();
}

BareRenderer::Stream BareRenderer::makeStream() const {
    Stream stream;
    stream.texture = MakeTexture(frame_.format(), frame_.width, frame_.height, nullptr);
    glGenBuffers(2, stream.buffers);
    for (const GLuint buffer : stream.buffers) {
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
        glBufferData(GL_PIXEL_UNPACK_BUFFER, static_cast<GLsizeiptr>(frame_.bytes()), nullptr,
                     GL_STREAM_DRAW);
    }
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    return stream;
}

/// Leaves the stream's texture bound to the active unit.
void BareRenderer::upload(Stream& stream, const void* pixels) const {
    const auto bytes = static_cast<GLsizeiptr>(frame_.bytes());
    glBindTexture(GL_TEXTURE_2D, stream.texture);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, stream.buffers[1 - stream.next]);
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, frame_.width, frame_.height, frame_.format(),
                    GL_UNSIGNED_BYTE, nullptr);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, stream.buffers[stream.next]);
    glBufferData(GL_PIXEL_UNPACK_BUFFER, bytes, nullptr, GL_STREAM_DRAW);
    void* store = glMapBufferRange(GL_PIXEL_UNPACK_BUFFER, 0, bytes, GL_MAP_WRITE_BIT);
    std::memcpy(store, pixels, frame_.bytes());
    glUnmapBuffer(GL_PIXEL_UNPACK_BUFFER);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    stream.next = 1 - stream.next;
}

void BareRenderer::drawStickers(const VEStickerList& stickers) const {
    glActiveTexture(stickerUnit_);
    glBindTexture(GL_TEXTURE_2D, stickerTexture_);
    glUniform1i(isSticker_, 1);
    const int halfWidth = frame_.width / 2;
    const int halfHeight = frame_.height / 2;
    for (const auto& sticker : stickers) {
        const float x =
            static_cast<float>(sticker.first - halfWidth) / static_cast<float>(halfWidth);
        const float y =
            static_cast<float>(sticker.second - halfHeight) / static_cast<float>(halfHeight);
        const BareQuad quad = MakeQuad(x - 0.05F, x + 0.05F, y - 0.2F, y - 0.4F);
        DrawBoundQuad();
        FreeQuad(quad);
    }
}
