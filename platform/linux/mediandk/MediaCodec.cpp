#include <android/log.h>
#include <media/NdkMediaCodec.h>

#include <deque>

#include "Codec.h"
#include "HostDecoder.h"

/// The object behind a handle. It outlives its codec, so that a late call finds no codec instead of
/// freed memory: callers may use and delete a codec on different threads without a lock.
struct AMediaCodec {
    std::shared_ptr<Codec> codec;  ///< Accessed atomically.
};

namespace {

/// Handles are never freed, not even at exit, since a thread may still use one.
AMediaCodec* NewHandle(std::shared_ptr<Codec> codec) {
    static auto& mutex = *new std::mutex;
    static auto& handles = *new std::deque<AMediaCodec>;
    const std::lock_guard<std::mutex> lock(mutex);
    return &handles.emplace_back(AMediaCodec{std::move(codec)});
}

/// \return the result of \p call, or \p fallback if the codec was deleted.
template <class Result, class Call>
Result With(AMediaCodec* handle, Result fallback, Call call) {
    const auto codec = handle != nullptr ? std::atomic_load(&handle->codec) : nullptr;
    return codec != nullptr ? call(*codec) : fallback;
}

template <class Call>
media_status_t With(AMediaCodec* handle, Call call) {
    return With(handle, AMEDIA_ERROR_INVALID_OBJECT, call);
}

AMediaFormat* Describe(const PictureFormat& picture) {
    constexpr int32_t kFullRange = 1;
    constexpr int32_t kLimitedRange = 2;
    constexpr int32_t kYuv420Planar = 19;
    AMediaFormat* format = AMediaFormat_new();
    AMediaFormat_setString(format, AMEDIAFORMAT_KEY_MIME, "video/raw");
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_WIDTH, picture.width);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_HEIGHT, picture.height);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_STRIDE, picture.width);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_SLICE_HEIGHT, picture.height);
    AMediaFormat_setInt32(format, "crop-left", 0);
    AMediaFormat_setInt32(format, "crop-top", 0);
    AMediaFormat_setInt32(format, "crop-right", picture.width - 1);
    AMediaFormat_setInt32(format, "crop-bottom", picture.height - 1);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_COLOR_FORMAT, kYuv420Planar);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_COLOR_RANGE,
                          picture.fullRange ? kFullRange : kLimitedRange);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_COLOR_STANDARD,
                          static_cast<int32_t>(picture.matrix));
    return format;
}

}  // namespace

extern "C" {

AMediaCodec* AMediaCodec_createDecoderByType(const char* mimeType) {
    if (mimeType == nullptr || VideoDecoder::CodecOf(mimeType) == AV_CODEC_ID_NONE) {
        __android_log_print(ANDROID_LOG_ERROR, kMediaLogTag, "no decoder for %s",
                            mimeType != nullptr ? mimeType : "(null)");
        return nullptr;
    }
    auto codec = std::make_shared<Codec>(mimeType);
    SetCurrentCodec(codec);
    return NewHandle(std::move(codec));
}

media_status_t AMediaCodec_delete(AMediaCodec* codec) {
    return With(codec, [codec](Codec& object) {
        std::atomic_store(&codec->codec, std::shared_ptr<Codec>());
        return object.Stop();
    });
}

media_status_t AMediaCodec_configure(AMediaCodec* codec, const AMediaFormat* format,
                                     ANativeWindow* surface, AMediaCrypto* crypto, uint32_t flags) {
    if (format == nullptr || crypto != nullptr) {
        return AMEDIA_ERROR_INVALID_PARAMETER;
    }
    return With(codec, [&](Codec& object) { return object.Configure(*format, surface, flags); });
}

media_status_t AMediaCodec_start(AMediaCodec* codec) {
    return With(codec, [](Codec& object) { return object.Start(); });
}

media_status_t AMediaCodec_stop(AMediaCodec* codec) {
    return With(codec, [](Codec& object) { return object.Stop(); });
}

media_status_t AMediaCodec_flush(AMediaCodec* codec) {
    return With(codec, [](Codec& object) { return object.Flush(); });
}

media_status_t AMediaCodec_setOutputSurface(AMediaCodec* codec, ANativeWindow* surface) {
    return With(codec, [=](Codec& object) { return object.SetWindow(surface); });
}

ssize_t AMediaCodec_dequeueInputBuffer(AMediaCodec* codec, int64_t timeoutUs) {
    return With<ssize_t>(codec, AMEDIA_ERROR_INVALID_OBJECT,
                         [=](Codec& object) { return object.DequeueInput(timeoutUs); });
}

uint8_t* AMediaCodec_getInputBuffer(AMediaCodec* codec, size_t index, size_t* capacity) {
    return With<uint8_t*>(codec, nullptr,
                          [=](Codec& object) { return object.InputData(index, capacity); });
}

media_status_t AMediaCodec_queueInputBuffer(AMediaCodec* codec, size_t index, off_t offset,
                                            size_t size, uint64_t timeUs, uint32_t flags) {
    return With(codec, [=](Codec& object) {
        return object.QueueInput(index, static_cast<size_t>(offset), size,
                                 static_cast<int64_t>(timeUs), flags);
    });
}

ssize_t AMediaCodec_dequeueOutputBuffer(AMediaCodec* codec, AMediaCodecBufferInfo* info,
                                        int64_t timeoutUs) {
    if (info == nullptr) {
        return AMEDIA_ERROR_INVALID_PARAMETER;
    }
    return With<ssize_t>(codec, AMEDIA_ERROR_INVALID_OBJECT,
                         [=](Codec& object) { return object.DequeueOutput(info, timeoutUs); });
}

uint8_t* AMediaCodec_getOutputBuffer(AMediaCodec* codec, size_t index, size_t* size) {
    return With<uint8_t*>(codec, nullptr,
                          [=](Codec& object) { return object.OutputData(index, size); });
}

AMediaFormat* AMediaCodec_getOutputFormat(AMediaCodec* codec) {
    return With<AMediaFormat*>(codec, nullptr, [](Codec& object) {
        const auto format = object.OutputFormat();
        return format ? Describe(*format) : nullptr;
    });
}

media_status_t AMediaCodec_releaseOutputBuffer(AMediaCodec* codec, size_t index, bool render) {
    return With(codec,
                [=](Codec& object) { return object.ReleaseOutput(index, render, std::nullopt); });
}

media_status_t AMediaCodec_releaseOutputBufferAtTime(AMediaCodec* codec, size_t index,
                                                     int64_t timestampNs) {
    return With(codec,
                [=](Codec& object) { return object.ReleaseOutput(index, true, timestampNs); });
}

}  // extern "C"
