#pragma once

#include <GLES3/gl3.h>

#include "support/Image.h"

/// A GL texture, deleted with its owner.
class Texture {
public:
    Texture() { glGenTextures(1, &name_); }
    ~Texture() { glDeleteTextures(1, &name_); }
    Texture(const Texture&) = delete;
    Texture& operator=(const Texture&) = delete;

    GLuint Name() const { return name_; }

private:
    GLuint name_ = 0;
};

/// Fills a texture with a picture, last row first, as the renderer expects of stickers.
void LoadSticker(const Texture& texture, const Image& sticker);

/// Reads pictures back from a texture, through a framebuffer.
class TextureReader {
public:
    TextureReader() = default;
    ~TextureReader() { glDeleteFramebuffers(1, &framebuffer_); }
    TextureReader(const TextureReader&) = delete;
    TextureReader& operator=(const TextureReader&) = delete;

    /// \throws ToolError when the texture cannot be read
    void Read(const Texture& texture, Image& image);

private:
    GLuint framebuffer_ = 0;
};

/// \param what names the picture in the message
/// \throws ToolError if the GL has no textures of this size
void CheckTextureSize(const char* what, Size size);
