#pragma once

#include <cstdint>
#include <memory>

#include "render/VERendererExt.h"

/// The seam between the guarded renderer, which is GL only, and the platform's decoder. Nothing
/// here needs the NDK's headers or Java's: a build without a decoder brings another OpenDecoder.

/// What a decoder needs to know. Pointers stay the application's.
struct DecoderSettings {
    int32_t source;  ///< VE_SOURCE_H264 or VE_SOURCE_MJPEG.
    int32_t width;
    int32_t height;
    int32_t maxPictureSize;    ///< GL_MAX_TEXTURE_SIZE: larger pictures are an error.
    uint32_t externalTexture;  ///< A name from glGenTextures; pictures are latched into it.
    int32_t closeWaitMs;       ///< Positive.
    void* javaVM;              ///< May be null: VE_ERROR_JAVA.
    void (*onPicture)(void* listener);  ///< May be null.
    void* listener;
};

/// A picture in the external texture.
struct LatchedPicture {
    bool isNew;
    bool isOutdated;   ///< The texture holds a picture of before a flush, which must not show.
    float matrix[16];  ///< SurfaceTexture.getTransformMatrix, column by column.
    int64_t ptsUs;
};

/// The platform's decoder, its thread, and the surface texture between it and GL. Functions may
/// throw std::bad_alloc, and nothing else.
///
/// \thread the GL thread, with the context current; state: any.
class DecoderSource {
public:
    DecoderSource() = default;
    DecoderSource(const DecoderSource&) = delete;
    DecoderSource& operator=(const DecoderSource&) = delete;
    /// After close only.
    virtual ~DecoderSource() = default;

    /// \see VEQueueUnit. \p unit is of full size, and its arguments are checked.
    virtual VEResult queue(const VEUnit& unit) = 0;
    /// \see VEFlush
    virtual VEResult flush() = 0;
    /// Latches the newest picture, which binds the external texture to the active unit.
    ///
    /// \param picture isNew is false when there is no newer one; then the rest but isOutdated
    /// stays. \return VE_OK also when the decoder has failed: the picture on screen stays.
    virtual VEResult latch(LatchedPicture& picture) = 0;
    /// All but picturesShown and structSize.
    virtual void state(VEDecoderState& state) const = 0;
    /// An android.view.Surface and an android.graphics.SurfaceTexture, as jobject.
    virtual void* surface() const = 0;
    virtual void* surfaceTexture() const = 0;
    /// Ends the decoder and its thread, and releases the Java objects. The external texture stays.
    /// Called once, before the destructor.
    ///
    /// \param contextLost no call may reach GL.
    /// \return VE_OK or VE_BUSY.
    virtual VEResult close(bool contextLost) = 0;
};

/// Whether the platform can have decoders at all.
bool HasDecoders();

/// Whether the platform has a decoder for \p source. Leaves nothing behind.
VEResult CheckDecoder(int32_t source);

/// Opens a decoder on a surface texture. The context is current; the binding of
/// GL_TEXTURE_EXTERNAL_OES on the active unit may change.
///
/// \param decoder receives it; untouched on failure, and nothing is left behind then.
VEResult OpenDecoder(const DecoderSettings& settings, std::unique_ptr<DecoderSource>& decoder);
