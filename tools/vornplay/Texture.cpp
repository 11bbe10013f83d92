#include "Texture.h"

#include <algorithm>
#include <string>

#include "support/ToolError.h"

void LoadSticker(const Texture& texture, const Image& sticker) {
    Image flipped(sticker.size);
    const size_t rowBytes = static_cast<size_t>(sticker.size.width) * Image::kChannels;
    for (int y = 0; y < sticker.size.height; ++y) {
        std::copy_n(sticker.At(0, sticker.size.height - 1 - y), rowBytes, flipped.At(0, y));
    }
    glBindTexture(GL_TEXTURE_2D, texture.Name());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, sticker.size.width, sticker.size.height, 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, flipped.pixels.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void TextureReader::Read(const Texture& texture, Image& image) {
    if (framebuffer_ == 0) {
        glGenFramebuffers(1, &framebuffer_);
    }
    glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer_);
    glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture.Name(),
                           0);
    if (glCheckFramebufferStatus(GL_READ_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
        throw ToolError("the GL cannot draw frames of this size");
    }
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, image.size.width, image.size.height, GL_RGBA, GL_UNSIGNED_BYTE,
                 image.pixels.data());
    glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
}

void CheckTextureSize(const char* what, Size size) {
    GLint limit = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &limit);
    if (size.width > limit || size.height > limit) {
        throw ToolError(std::string(what) + " of " + std::to_string(size.width) + "x" +
                        std::to_string(size.height) + " is larger than the GL's limit of " +
                        std::to_string(limit));
    }
}
