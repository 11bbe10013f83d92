#include "support/RendererHarness.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <gtest/gtest.h>

#include <algorithm>

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
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, image.size.width, image.size.height, 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, image.pixels.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(GL_TEXTURE_2D, 0);
}

unsigned NewExternalTexture(const Image& image) {
    const unsigned backing = NewTexture();
    Fill(backing, image);
    auto* createImage =
        reinterpret_cast<PFNEGLCREATEIMAGEKHRPROC>(eglGetProcAddress("eglCreateImageKHR"));
    auto* attachImage = reinterpret_cast<PFNGLEGLIMAGETARGETTEXTURE2DOESPROC>(
        eglGetProcAddress("glEGLImageTargetTexture2DOES"));
    // A texture's name in the guise of a pointer.
    auto* buffer = reinterpret_cast<EGLClientBuffer>(uintptr_t{backing});
    void* shared = createImage(eglGetCurrentDisplay(), eglGetCurrentContext(),
                               EGL_GL_TEXTURE_2D_KHR, buffer, nullptr);
    const unsigned external = NewTexture();
    glBindTexture(GL_TEXTURE_EXTERNAL_OES, external);
    attachImage(GL_TEXTURE_EXTERNAL_OES, shared);
    glTexParameteri(GL_TEXTURE_EXTERNAL_OES, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_EXTERNAL_OES, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(GL_TEXTURE_EXTERNAL_OES, 0);
    return external;
}

Image ReadBack(unsigned texture, Size size) {
    Image image(size);
    unsigned framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    glReadPixels(0, 0, size.width, size.height, GL_RGBA, GL_UNSIGNED_BYTE, image.pixels.data());
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glDeleteFramebuffers(1, &framebuffer);
    return image;
}

void SetClearColor(const Rgba& color) {
    float values[4];
    std::transform(color.begin(), color.end(), values,
                   [](uint8_t byte) { return static_cast<float>(byte) / 255.0F; });
    glClearColor(values[0], values[1], values[2], values[3]);
}

RendererHarness::RendererHarness(const VERendererMode& mode, int format) : mode(mode) {
    const int name = static_cast<int>(texture);
    const int result =
        format == VE_FORMAT_RGBA
            ? VECreateRendererHandle(&handle, name, &this->mode, nullptr)
            : VECreateRendererHandleWithFormat(&handle, name, format, &this->mode, nullptr);
    EXPECT_EQ(result, 0);
    EXPECT_NE(handle, nullptr);
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
    SetClearColor(scene.clear);
    std::vector<uint8_t> pixels = Packed(scene.source, mode.modeType == VE_MODE_RGB);
    std::vector<uint8_t> mask = Packed(scene.mask, mode.maskFormat != VE_MASK_RGBA);
    VEStickerList stickers = scene.stickers;
    void* maskPixels = mask.empty() ? nullptr : mask.data();
    const int sticker = scene.sticker == nullptr ? -1 : static_cast<int>(stickerTexture_);
    EXPECT_EQ(
        VEUpdateRendererWithSticker(handle, pixels.data(), static_cast<unsigned>(pixels.size()),
                                    scene.colorMirror, maskPixels, sticker, stickers),
        0);
    EXPECT_EQ(scene.stickers, stickers);
}

void RendererHarness::show(const Scene& scene) {
    VEUpdateUserPosition(handle, scene.viewX, 7.0F, scene.zoom, 9.0F);
    // Source texture, mask texture, upload, draw.
    for (int call = 0; call < 4; ++call) {
        update(scene);
    }
}

void RendererHarness::expectShows(const Scene& scene) {
    show(scene);
    ExpectShows(readBack(), scene);
}
