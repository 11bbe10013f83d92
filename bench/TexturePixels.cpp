#include "TexturePixels.h"

#include <cstddef>

std::vector<unsigned char> ReadTexture(GLuint texture, int width, int height) {
    GLuint framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    std::vector<unsigned char> pixels(size_t{4} * static_cast<size_t>(width) *
                                      static_cast<size_t>(height));
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    glDeleteFramebuffers(1, &framebuffer);
    return pixels;
}
