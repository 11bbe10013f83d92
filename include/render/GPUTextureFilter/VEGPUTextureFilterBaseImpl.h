#pragma once

#include <cstdint>

#include "kernel/GlGeometry.h"
#include "kernel/Matrix4.h"
#include "render/GPUTextureFilter/VEGPUTextureFilterBase.h"
#include "render/VEStickerList.h"

/// The texture filter draws a picture into the caller's texture: with a mask, with stickers, in a
/// perspective view that can move. Not exported.
///
/// The first draw creates the program and the framebuffer and chooses the shaders for all draws.
///
/// \thread the GL thread.
class GPUTextureFilterBaseImpl : public GPUTextureFilterBase {
public:
    /// Stands for "no mask", and for a program that is not built yet.
    static constexpr uint32_t kNone = 0xFFFFFFFFU;

    /// \param width, height the size of the source and of the target.
    GPUTextureFilterBaseImpl(uint32_t targetTexture, uint32_t targetFormat, uint32_t sourceFormat,
                             uint32_t width, uint32_t height, uint32_t maskFormat,
                             uint32_t maskWidth, uint32_t maskHeight);
    ~GPUTextureFilterBaseImpl();
    GPUTextureFilterBaseImpl(const GPUTextureFilterBaseImpl&) = delete;
    GPUTextureFilterBaseImpl& operator=(const GPUTextureFilterBaseImpl&) = delete;

    /// Moves the camera to (\p x, 0, 3 - zoom / 2), looking at (x, 0, 0), for the next draws. \p y
    /// and \p w are ignored.
    void updateMatrixState(float x, float y, float zoom, float w);

    /// Rebuilds the sticker mesh for the anchor (\p x, \p y), in pixels of the output from the
    /// first row and column. (-1, -1) hides the sticker and keeps the mesh.
    void updateStickerPaintPosition(int32_t x, int32_t y);

    /// \param sourceIsExternal the source is a GL_TEXTURE_EXTERNAL_OES, not a GL_TEXTURE_2D.
    /// \param maskTexture      kNone for no mask.
    /// \param stickerTexture   a negative number for no stickers.
    void draw(uint32_t sourceTexture, uint32_t maskTexture, bool mirror, bool sourceIsExternal,
              int32_t stickerTexture, const VEStickerList& stickers);

protected:
    uint32_t m_targetTexture;
    uint32_t m_targetFormat;
    uint32_t m_targetWidth;
    uint32_t m_targetHeight;
    uint32_t m_sourceFormat;
    uint32_t m_sourceWidth;
    uint32_t m_sourceHeight;
    uint32_t m_maskFormat;
    uint32_t m_maskWidth;
    uint32_t m_maskHeight;
    uint32_t m_program = kNone;
    bool m_stickerVisible = false;
    GLFbo* m_fbo = nullptr;
    OVR::GlGeometry m_quad;
    OVR::GlGeometry m_stickerQuad;
    OVR::Matrix4<float> m_projection;
    OVR::Matrix4<float> m_mvpMatrix;
    int32_t m_texture0Loc = -1;
    int32_t m_texture1Loc = -1;
    int32_t m_texture2Loc = -1;
    int32_t m_colorMirrorLoc = -1;
    int32_t m_spareLocs[2] = {-1, -1};  // Frozen: record fields
    int32_t m_matrixLoc = -1;
    int32_t m_stickerLoc = -1;

private:
    void buildProgram(bool sourceIsExternal, bool masked);
    void makeTarget();
    void beginTarget() const;
    void useProgram(bool mirror) const;
    void bindTextures(uint32_t sourceTexture, uint32_t maskTexture, bool sourceIsExternal,
                      int32_t stickerTexture) const;
    void drawStickers(const VEStickerList& stickers);
};
