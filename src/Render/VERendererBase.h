#pragma once

#include <cstdint>

#include "render/VERenderer.h"

/// A renderer. Its handle is the address of this object.
///
/// VEDestroyRenderer calls Destroy, runs this class's destructor and frees the memory. It does not
/// know the kind of renderer, so a subclass must not need a destructor.
///
/// \thread the GL thread.
class VERendererBase {
public:
    VERendererBase(int textureId, int format, VERendererMode* mode);
    ~VERendererBase() = default;  // Frozen: base destructor
    VERendererBase(const VERendererBase&) = delete;
    VERendererBase& operator=(const VERendererBase&) = delete;

    // Frozen: renderer slots

    /// Draws one frame. \return 0.
    virtual int Update(void* data, unsigned int size, bool colorMirror, void* maskData,
                       int stickerTexture, VEStickerList& stickers) = 0;
    /// Releases everything that the renderer owns. A second call does nothing more.
    virtual void Destroy() = 0;
    /// Hands one compressed access unit to the decoder. \return 0.
    virtual int UpdateCompressedData(void* data, int size) = 0;
    /// Passes a view position to the filter. \return 0.
    virtual int UpdateUserPosition(float a, float b, float c, float d) = 0;

protected:
    /// The GL formats that the creation arguments name.
    static uint32_t TargetFormat(int format);
    static uint32_t MaskFormat(const VERendererMode& mode);

    int32_t textureId;
    int32_t textureWidth;
    int32_t textureHeight;
    int32_t outputMode;
};
