#include "VEOESRenderer.h"

#include <android/log.h>

#include "../DecodeRenderer.h"
#include "../JavaEnvSlot.h"
#include "DecodeLoop.h"
#include "VEOESSurfaceTexture.h"
#include "gl/GLES3.h"
#include "render/GPUTextureFilter/VEGPUTexture2TextureFilter.h"
#include "render/VELog.h"

namespace {

constexpr char kSourceFile[] = "src/Render/OESRenderer/VEOESRenderer.cpp";
constexpr char kSurfaceClass[] = "android/view/Surface";

void Log(const char* text) {
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile, "%s", text);
}

/// Logs \p failure when \p result is null.
// Frozen: unchecked results
template <typename T>
T Checked(T result, const char* failure) {
    if (result == nullptr) {
        Log(failure);
    }
    return result;
}

/// Start routine of the decoder thread. Owns its argument: a shared pointer to the loop.
void* Codec_Thread_Fun(void* argument) {
    pthread_detach(pthread_self());  // Frozen: decoder thread
    const std::unique_ptr<std::shared_ptr<DecodeLoop>> loop(
        static_cast<std::shared_ptr<DecodeLoop>*>(argument));
    (*loop)->run();
    return nullptr;
}

}  // namespace

VEOESRenderer::VEOESRenderer(int textureId, int format, VERendererMode* mode, void* javaVM)
    : VERendererBase(textureId, format, mode), javaVM(static_cast<JavaVM*>(javaVM)) {
    if (!GLES3::LoadGLFunctions()) {
        Log("\n Failed to load GLES3 core entry points! ...######renderer\n");
    }
    if (javaVM == nullptr) {
        Log("\n JNI_OnLoad() not called yet ...######renderer\n");
        return;
    }
    this->javaVM->AttachCurrentThread(JavaEnvSlot{&env}, nullptr);  // Frozen: attached thread
    try {
        LocalInit();
        startDecoding(*mode);
        createFilter(textureId, format, *mode);
    } catch (...) {  // No memory.
        Destroy();
        throw;
    }
    // Frozen: log texts
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                   "\n VEOESRenderer textureId(%d), textureWidth (%d), textureHieght(%d), "
                   "maskWidth(%d), maskHeight(%d)... ###renderer\n",
                   textureId, textureWidth, textureHeight, mode->maskWidth, mode->maskHeight);
}

void VEOESRenderer::LocalInit() {
    Log("\n LocalInit! \n");
    surfaceTexture = new OESSurfaceTexture(env);
    createSurface();
}

void VEOESRenderer::createSurface() {
    jclass surfaceClass = env->FindClass(kSurfaceClass);
    if (surfaceClass == nullptr) {
        LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                       "\n VEOESRenderer FindClass( %s ) failed ...######renderer\n",
                       kSurfaceClass);
    }
    jmethodID constructor =
        Checked(env->GetMethodID(surfaceClass, "<init>", "(Landroid/graphics/SurfaceTexture;)V"),
                "\n VEOESRenderer GetMethodID( <init> ) failed ...######renderer\n");
    jobject local =
        Checked(env->NewObject(surfaceClass, constructor, surfaceTexture->GetJavaObject()),
                "\n VEOESRenderer NewObject() failed ...######renderer\n");
    surface = Checked(env->NewGlobalRef(local),
                      "\n VEOESRenderer NewGlobalRef() failed ...######renderer\n");
    env->DeleteLocalRef(local);
    env->DeleteLocalRef(surfaceClass);
}

void VEOESRenderer::startDecoding(const VERendererMode& mode) {
    mimeType = mode.modeType == VE_MODE_H264 ? "video/avc" : "video/mjpeg";
    decoding =
        std::make_shared<DecodeLoop>(env, surface, mode.textureWidth, mode.textureHeight, mimeType);
    auto threadsShare = std::make_unique<std::shared_ptr<DecodeLoop>>(decoding);
    if (pthread_create(&decodeThread, nullptr, Codec_Thread_Fun, threadsShare.get()) == 0) {
        (void)threadsShare.release();  // The thread owns it.
    }
}

void VEOESRenderer::createFilter(int textureId, int format, const VERendererMode& mode) {
    filter = new GPUTexture2TextureFilter(static_cast<uint32_t>(textureId), TargetFormat(format),
                                          GL_RGB, static_cast<uint32_t>(mode.textureWidth),
                                          static_cast<uint32_t>(mode.textureHeight),
                                          MaskFormat(mode), static_cast<uint32_t>(mode.maskWidth),
                                          static_cast<uint32_t>(mode.maskHeight));
}

int VEOESRenderer::Update(void* /*data*/, unsigned int /*size*/, bool colorMirror, void* maskData,
                          int stickerTexture, VEStickerList& stickers) {
    if (surfaceTexture == nullptr) {
        return 0;
    }
    surfaceTexture->Update();
    const uint32_t source = surfaceTexture->GetTextureId();
    if (outputMode == VE_OUTPUT_PICTURE) {
        filter->Texture2FilterTexture(source, colorMirror, true, stickerTexture, stickers);
    } else if (outputMode == VE_OUTPUT_MASKED) {
        filter->Texture2ExtractFilterTexture(source, colorMirror, maskData, true, stickerTexture,
                                             stickers);
    }
    return 0;
}

void VEOESRenderer::Destroy() {
    Log("VEOESRenderer::Destroy ..######renderer");
    if (decoding != nullptr) {
        decoding->stopDecoding = true;
        decoding->codec.shutDown();
        decoding.reset();
    }
    delete surfaceTexture;
    surfaceTexture = nullptr;
    if (env != nullptr && surface != nullptr) {
        env->DeleteGlobalRef(surface);
        surface = nullptr;
    }
    delete filter;
    filter = nullptr;
    Log("VEOESRenderer::Destroy success ..######renderer");
}

int VEOESRenderer::UpdateCompressedData(void* data, int size) {
    if (decoding != nullptr) {
        decoding->codec.flush(data, size);
    }
    return 0;
}

int VEOESRenderer::UpdateUserPosition(float a, float b, float c, float d) {
    if (surfaceTexture != nullptr && outputMode == VE_OUTPUT_MASKED) {
        filter->UpdateUserPosition(a, b, c, d);
    }
    return 0;
}

VERendererBase* CreateDecodeRenderer(int textureId, int format, VERendererMode* mode,
                                     void* javaVM) {
    return new VEOESRenderer(textureId, format, mode, javaVM);
}
