#include "DirectRenderer.h"

DirectRenderer::DirectRenderer(const FrameCase& frame, float scale, GLint filter)
    : frame_(frame),
      source_(MakeTexture(frame.format(), frame.width, frame.height, nullptr, filter)),
      target_(MakeTexture(GL_RGBA, frame.width, frame.height, nullptr)),
      framebuffer_(MakeFramebuffer(target_)),
      program_(MakeProgram(ShaderKind::kLean, false, scale)),
      picture_(MakeQuad(-1, 1, -1, 1).vertexArray) {
    glBindVertexArray(0);
}

void DirectRenderer::draw(const void* pixels) const {
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, source_);
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, frame_.width, frame_.height, frame_.format(),
                    GL_UNSIGNED_BYTE, pixels);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
    glViewport(0, 0, frame_.width, frame_.height);
    glClear(GL_COLOR_BUFFER_BIT);
    glUseProgram(program_);
    glBindVertexArray(picture_);
    DrawBoundQuad();
    glBindVertexArray(0);
}
