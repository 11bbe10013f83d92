#pragma once

#include <jni.h>
#include <pthread.h>

#include <memory>

#include "../VERendererBase.h"

class GPUTexture2TextureFilter;
class OESSurfaceTexture;
struct DecodeLoop;

/// The renderer of H.264 and Motion-JPEG. The platform decodes into a surface texture, and each
/// update draws the newest picture. Without a JVM, all calls do nothing.
///
/// \thread the GL thread. Creation attaches it to the JVM, and it stays attached.
class VEOESRenderer : public VERendererBase {
public:
    VEOESRenderer(int textureId, int format, VERendererMode* mode, void* javaVM);

    /// Ignores \p data and \p size: pictures come from the decoder.
    int Update(void* data, unsigned int size, bool colorMirror, void* maskData, int stickerTexture,
               VEStickerList& stickers) override;
    /// Asks the decoder thread to stop and does not wait until it has stopped.
    void Destroy() override;
    int UpdateCompressedData(void* data, int size) override;
    int UpdateUserPosition(float a, float b, float c, float d) override;

private:
    /// Creates the surface texture and the Java surface on it.
    void LocalInit();
    void createSurface();
    void startDecoding(const VERendererMode& mode);
    void createFilter(int textureId, int format, const VERendererMode& mode);

    JavaVM* javaVM;  ///< Belongs to the application.
    JNIEnv* env = nullptr;
    OESSurfaceTexture* surfaceTexture = nullptr;  ///< Owned.
    jobject surface = nullptr;                    ///< An android.view.Surface, a global reference.
    const char* mimeType = nullptr;
    std::shared_ptr<DecodeLoop> decoding;  ///< The stop flag and the decoder. Empty after Destroy.
    pthread_t decodeThread = {};           ///< Detached.
    GPUTexture2TextureFilter* filter = nullptr;  ///< Owned.
};
