#include "LeastPath.h"

#include <libyuv/convert_argb.h>

LeastPath::LeastPath(const Clip& clip, ShaderKind kind)
    : clip_(clip),
      decoder_(clip),
      pixels_(size_t{4} * static_cast<size_t>(clip.width) * static_cast<size_t>(clip.height)),
      source_(MakeTexture(GL_RGBA, clip.width, clip.height, nullptr)),
      target_(MakeTexture(GL_RGBA, clip.width, clip.height, nullptr)),
      program_(MakeProgram(kind, false)),
      picture_(MakeQuad(-1, 1, -1, 1).vertexArray) {
    glBindTexture(GL_TEXTURE_2D, source_);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glGenFramebuffers(1, &framebuffer_);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, target_, 0);
    glBindVertexArray(0);
}

void LeastPath::play(int count) {
    for (int i = 0; i < count; ++i) {
        convert(decoder_.next());
        draw();
        glFinish();
    }
}

void LeastPath::prepare(int count) {
    for (int i = 0; i < count; ++i) {
        convert(decoder_.next());
    }
}

void LeastPath::convert(const AVFrame& frame) {
    constexpr int kTelevisionHeight = 576;
    // libyuv's name for bytes in the order R, G, B, A.
    const auto toRgba = clip_.height > kTelevisionHeight ? libyuv::H420ToABGR : libyuv::I420ToABGR;
    toRgba(frame.data[0], frame.linesize[0], frame.data[1], frame.linesize[1], frame.data[2],
           frame.linesize[2], pixels_.data(), 4 * clip_.width, clip_.width, clip_.height);
}

void LeastPath::draw() const {
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, source_);
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, clip_.width, clip_.height, GL_RGBA, GL_UNSIGNED_BYTE,
                    pixels_.data());
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
    glViewport(0, 0, clip_.width, clip_.height);
    glClear(GL_COLOR_BUFFER_BIT);
    glUseProgram(program_);
    glUniform1i(glGetUniformLocation(program_, "isSticker"), 0);
    glBindVertexArray(picture_);
    DrawBoundQuad();
    glBindVertexArray(0);
}
