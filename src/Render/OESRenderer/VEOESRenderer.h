#pragma once

#include <jni.h>
#include <pthread.h>

#include <memory>

#include "../VERendererBase.h"

class GPUTexture2TextureFilter;
class OESSurfaceTexture;
struct DecodeLoop;

/// The renderer of H.264 and Motion-JPEG: the platform decodes into a surface texture, and each
/// update draws the newest picture.
///
/// Without a Java VM it is inert: all calls are harmless and draw nothing.
///
/// \thread the GL thread, which is attached to the Java VM by creation and stays attached.
class VEOESRenderer : public VERendererBase {
public:
    VEOESRenderer(int textureId, int format, VERendererMode* mode, void* javaVM);

    /// \p data and \p size are ignored: pictures come from the decoder.
    int Update(void* data, unsigned int size, bool colorMirror, void* maskData, int stickerTexture,
               VEStickerList& stickers) override;
    /// Tells the decoder thread to stop and does not wait for it.
    void Destroy() override;
    int UpdateCompressedData(void* data, int size) override;
    int UpdateUserPosition(float a, float b, float c, float d) override;

private:
    /// Makes the surface texture and the Java surface on it.
    void LocalInit();
    void createSurface();
    void startDecoding(const VERendererMode& mode);

    JavaVM* javaVM;  ///< The application's.
    JNIEnv* env = nullptr;
    OESSurfaceTexture* surfaceTexture = nullptr;  ///< Owned.
    jobject surface = nullptr;                    ///< An android.view.Surface, a global reference.
    const char* mimeType = nullptr;
    std::shared_ptr<DecodeLoop> decoding;  ///< The stop flag and the decoder. Empty after Destroy.
    pthread_t decodeThread = {};           ///< Detached: it ends by itself.
    GPUTexture2TextureFilter* filter = nullptr;  ///< Owned.
};
