#include "support/RendererHarness.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "gl/GLES3.h"

TestContext::TestContext() {
    EXPECT_TRUE(GLES3::LoadGLFunctions());
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
}

unsigned NewTexture() {
    unsigned name = 0;
    glGenTextures(1, &name);
    return name;
}

void Fill(unsigned texture, const Image& image) {
    const GLenum format = image.channels == 4 ? GL_RGBA : GL_RGB;
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), image.width, image.height, 0, format,
                 GL_UNSIGNED_BYTE, image.bytes.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(GL_TEXTURE_2D, 0);
}

Image ReadBack(unsigned texture, int width, int height) {
    Image image(width, height, 4);
    unsigned framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, image.bytes.data());
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glDeleteFramebuffers(1, &framebuffer);
    return image;
}

RendererHarness::RendererHarness(const VERendererMode& mode, int format) : mode(mode) {
    EXPECT_EQ(0, VECreateRendererHandleWithFormat(&handle, static_cast<int>(texture), format,
                                                  &this->mode, nullptr));
    EXPECT_NE(nullptr, handle);
}

RendererHarness::~RendererHarness() {
    VEDestroyRenderer(handle);
    glDeleteTextures(1, &stickerTexture_);
    glDeleteTextures(1, &texture);
}

void RendererHarness::update(const Scene& scene) {
    if (scene.sticker != nullptr && scene.sticker != stickerImage_) {
        glDeleteTextures(1, &stickerTexture_);
        stickerTexture_ = NewTexture();
        Fill(stickerTexture_, *scene.sticker);
        stickerImage_ = scene.sticker;
    }
    glClearColor(static_cast<float>(scene.clear[0]) / 255, static_cast<float>(scene.clear[1]) / 255,
                 static_cast<float>(scene.clear[2]) / 255,
                 static_cast<float>(scene.clear[3]) / 255);
    auto* pixels = const_cast<uint8_t*>(scene.source->bytes.data());
    auto* mask = scene.mask == nullptr ? nullptr : const_cast<uint8_t*>(scene.mask->bytes.data());
    VEStickerList stickers = scene.stickers;
    EXPECT_EQ(
        0, VEUpdateRendererWithSticker(
               handle, pixels, static_cast<unsigned>(scene.source->bytes.size()), scene.colorMirror,
               mask, scene.sticker == nullptr ? -1 : static_cast<int>(stickerTexture_), stickers));
    EXPECT_EQ(stickers, scene.stickers);
}

void RendererHarness::show(const Scene& scene) {
    VEUpdateUserPosition(handle, scene.viewX, 7.0F, scene.zoom, 9.0F);
    // Source texture, mask texture, upload, draw.
    for (int call = 0; call < 4; ++call) {
        update(scene);
    }
}

void RendererHarness::expectShows(const Scene& scene, int tolerance) {
    show(scene);
    ExpectShows(readBack(), scene, tolerance);
}

void ExpectShows(const Image& drawn, const Scene& scene, int tolerance) {
    const auto expected = Predict(scene, drawn.width, drawn.height);
    size_t undecided = 0;
    size_t wrong = 0;
    for (size_t i = 0; i < expected.size(); ++i) {
        undecided += expected[i] ? 0 : 1;
        const Rgba got =
            drawn.pixel(static_cast<int>(i) % drawn.width, static_cast<int>(i) / drawn.width);
        for (size_t c = 0; expected[i] && c < 4; ++c) {
            wrong += std::abs(got[c] - (*expected[i])[c]) > tolerance ? 1 : 0;
        }
    }
    EXPECT_EQ(0U, wrong) << "channels differ";
    EXPECT_LT(undecided, expected.size() / 8 + 2) << "the model says too little";
}
