#include "PicturePass.h"

#include <libyuv/convert_argb.h>

PicturePass::PicturePass(const Clip& clip, ShaderKind kind)
    : width_(clip.width),
      height_(clip.height),
      source_(MakeTexture(GL_RGBA, width_, height_, nullptr, GL_LINEAR)),
      target_(MakeTexture(GL_RGBA, width_, height_, nullptr)),
      framebuffer_(MakeFramebuffer(target_)),
      program_(MakeProgram(kind, false)),
      isSticker_(glGetUniformLocation(program_, "isSticker")),
      picture_(MakeQuad(-1, 1, -1, 1).vertexArray) {
    glBindVertexArray(0);
}

void PicturePass::convert(const AVFrame& frame, std::vector<unsigned char>& pixels) const {
    // libyuv's name for bytes in the order R, G, B, A.
    const auto toRgba = height_ > kTelevisionHeight ? libyuv::H420ToABGR : libyuv::I420ToABGR;
    pixels.resize(size_t{4} * static_cast<size_t>(width_) * static_cast<size_t>(height_));
    toRgba(frame.data[0], frame.linesize[0], frame.data[1], frame.linesize[1], frame.data[2],
           frame.linesize[2], pixels.data(), 4 * width_, width_, height_);
}

void PicturePass::draw(const std::vector<unsigned char>& pixels) const {
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, source_);
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE,
                    pixels.data());
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
    glViewport(0, 0, width_, height_);
    glClear(GL_COLOR_BUFFER_BIT);
    glUseProgram(program_);
    glUniform1i(isSticker_, 0);
    glBindVertexArray(picture_);
    DrawBoundQuad();
    glBindVertexArray(0);
    glFinish();
}
