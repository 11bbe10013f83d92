#include "VEAndroidCodec.h"

#include <android/log.h>
#include <android/native_window_jni.h>
#include <media/NdkMediaCodec.h>

#include <cstring>

#include "render/VELog.h"

namespace {

constexpr char kSourceFile[] = "src/Render/OESRenderer/VEAndroidCodec.cpp";

constexpr int64_t kInputTimeoutUs = 2000;
constexpr int64_t kOutputTimeoutUs = 1000;

// Frozen: decoder format
AMediaFormat* MakeFormat(int width, int height, const char* mimeType) {
    AMediaFormat* format = AMediaFormat_new();
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_WIDTH, width);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_HEIGHT, height);
    AMediaFormat_setString(format, AMEDIAFORMAT_KEY_MIME, mimeType);
    return format;
}

AMediaCodec* MakeCodec(ANativeWindow* window, int width, int height, const char* mimeType) {
    const AMediaFormat* format = MakeFormat(width, height, mimeType);
    AMediaCodec* codec = AMediaCodec_createDecoderByType(mimeType);
    AMediaCodec_configure(codec, format, window, nullptr, 0);
    AMediaCodec_start(codec);
    return codec;
}

/// "Try again", a new format and new buffers are not errors.
bool IsNotice(ssize_t index) {
    return index < 0 && index >= AMEDIACODEC_INFO_OUTPUT_BUFFERS_CHANGED;
}

}  // namespace

AndroidCodec::AndroidCodec(JNIEnv* env, jobject surface, int width, int height,
                           const char* mimeType)
    : window(ANativeWindow_fromSurface(env, surface)),
      codec(MakeCodec(window, width, height, mimeType)) {
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                   "\n AndroidCodec init success, width (%d), height (%d), type (%s) \n", width,
                   height, mimeType);
}

void AndroidCodec::flush(const void* data, int size) {
    AMediaCodec* decoder = codec.get();
    if (decoder == nullptr || data == nullptr || size <= 0) {
        return;
    }
    const ssize_t index = AMediaCodec_dequeueInputBuffer(decoder, kInputTimeoutUs);
    if (index < 0) {
        return;
    }
    const auto slot = static_cast<size_t>(index);
    const auto bytes = static_cast<size_t>(size);
    size_t capacity = 0;
    uint8_t* buffer = AMediaCodec_getInputBuffer(decoder, slot, &capacity);
    std::memcpy(buffer, data, bytes);  // Frozen: unit size
    // Frozen: units
    AMediaCodec_queueInputBuffer(decoder, slot, 0, bytes, 0, 0);
}

bool AndroidCodec::update() {
    AMediaCodecBufferInfo info = {};
    const auto index = codec.use<ssize_t>(AMEDIA_ERROR_INVALID_OBJECT, [&](AMediaCodec* decoder) {
        return AMediaCodec_dequeueOutputBuffer(decoder, &info, kOutputTimeoutUs);
    });
    if (index < 0) {
        return IsNotice(index);
    }
    return codec.use(AMEDIA_ERROR_INVALID_OBJECT, [&](AMediaCodec* decoder) {
        return AMediaCodec_releaseOutputBuffer(decoder, static_cast<size_t>(index), info.size != 0);
    }) == AMEDIA_OK;
}

void AndroidCodec::shutDown() {
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile, "destroy android codec start..######renderer");
    if (window != nullptr) {
        ANativeWindow_release(window);
        window = nullptr;
    }
    codec.shutDown();
    LogWithFileTag(ANDROID_LOG_INFO, kSourceFile, "destroy android codec end..######renderer");
}
