#include <android/log.h>
#include <media/NdkMediaCodec.h>
#include <system/window.h>

#include <atomic>
#include <deque>
#include <type_traits>

#include "Codec.h"
#include "HostDecoder.h"

/// The object behind a handle. It outlives its codec, so that a late call finds no codec instead of
/// freed memory: callers may use and delete a codec on different threads without a lock. In strict
/// mode it does not.
struct AMediaCodec {
    explicit AMediaCodec(std::shared_ptr<Codec> object) : codec(std::move(object)) {}

    std::shared_ptr<Codec> codec;  ///< Accessed atomically.
    std::atomic<int> calls{0};     ///< Those under way, in strict mode.
};

namespace {

/// Handles are never freed, not even at exit, since a thread may still use one.
AMediaCodec* NewLastingHandle(std::shared_ptr<Codec> codec) {
    static auto& mutex = *new std::mutex;
    static auto& handles = *new std::deque<AMediaCodec>;
    const std::lock_guard<std::mutex> lock(mutex);
    return &handles.emplace_back(std::move(codec));
}

template <class Result>
Result ErrorResult(media_status_t status) {
    if constexpr (std::is_pointer_v<Result>) {
        return nullptr;
    } else {
        return static_cast<Result>(status);
    }
}

template <class Action>
auto RunUnlessFailing(Codec& codec, uint32_t call, Action action) {
    const media_status_t error = codec.Behavior().ErrorOf(call);
    return error == AMEDIA_OK ? action(codec)
                              : ErrorResult<std::invoke_result_t<Action, Codec&>>(error);
}

/// Runs \p action with the handle's codec.
/// \param call of HostCall; 0: one that the host cannot make fail.
template <class Action>
auto With(AMediaCodec* handle, uint32_t call, Action action) {
    const bool mayRead = handle != nullptr || native_window_is_strict() != 0;
    const auto codec = mayRead ? std::atomic_load(&handle->codec) : nullptr;
    if (codec == nullptr) {
        return ErrorResult<std::invoke_result_t<Action, Codec&>>(AMEDIA_ERROR_INVALID_OBJECT);
    }
    if (!codec->IsStrict()) {
        return RunUnlessFailing(*codec, call, action);
    }
    // A device, too, uses the handle until its calls return.
    ++handle->calls;
    const auto result = RunUnlessFailing(*codec, call, action);
    --handle->calls;
    return result;
}

AMediaFormat* Describe(const PictureFormat& picture) {
    constexpr int32_t kFullRange = 1;
    constexpr int32_t kLimitedRange = 2;
    constexpr int32_t kYuv420Planar = 19;
    AMediaFormat* format = AMediaFormat_new();
    AMediaFormat_setString(format, AMEDIAFORMAT_KEY_MIME, "video/raw");
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_WIDTH, picture.bufferWidth);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_HEIGHT, picture.bufferHeight);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_STRIDE, picture.bufferWidth);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_SLICE_HEIGHT, picture.bufferHeight);
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
    auto codec =
        std::make_shared<Codec>(mimeType, TakeNextBehavior(), native_window_is_strict() != 0);
    if (codec->Behavior().ErrorOf(HOST_CALL_CREATE) != AMEDIA_OK) {
        return nullptr;
    }
    SetCurrentCodec(codec);
    return codec->IsStrict() ? new AMediaCodec(std::move(codec))
                             : NewLastingHandle(std::move(codec));
}

media_status_t AMediaCodec_delete(AMediaCodec* codec) {
    const auto object =
        codec != nullptr ? std::atomic_exchange(&codec->codec, std::shared_ptr<Codec>()) : nullptr;
    if (object == nullptr) {
        return AMEDIA_ERROR_INVALID_OBJECT;
    }
    if (object->IsStrict()) {
        delete codec;  // Before calls under way end, so that they always meet a freed handle.
    }
    return object->Stop();
}

media_status_t AMediaCodec_configure(AMediaCodec* codec, const AMediaFormat* format,
                                     ANativeWindow* surface, AMediaCrypto* crypto, uint32_t flags) {
    if (format == nullptr || crypto != nullptr) {
        return AMEDIA_ERROR_INVALID_PARAMETER;
    }
    return With(codec, HOST_CALL_CONFIGURE,
                [&](Codec& object) { return object.Configure(*format, surface, flags); });
}

media_status_t AMediaCodec_start(AMediaCodec* codec) {
    return With(codec, HOST_CALL_START, [](Codec& object) { return object.Start(); });
}

media_status_t AMediaCodec_stop(AMediaCodec* codec) {
    return With(codec, 0, [](Codec& object) { return object.Stop(); });
}

media_status_t AMediaCodec_flush(AMediaCodec* codec) {
    return With(codec, HOST_CALL_FLUSH, [](Codec& object) { return object.Flush(); });
}

media_status_t AMediaCodec_setOutputSurface(AMediaCodec* codec, ANativeWindow* surface) {
    return With(codec, 0, [=](Codec& object) { return object.SetWindow(surface); });
}

ssize_t AMediaCodec_dequeueInputBuffer(AMediaCodec* codec, int64_t timeoutUs) {
    return With(codec, HOST_CALL_DEQUEUE_INPUT,
                [=](Codec& object) { return object.DequeueInput(timeoutUs); });
}

uint8_t* AMediaCodec_getInputBuffer(AMediaCodec* codec, size_t index, size_t* capacity) {
    return With(codec, HOST_CALL_GET_INPUT,
                [=](Codec& object) { return object.InputData(index, capacity); });
}

media_status_t AMediaCodec_queueInputBuffer(AMediaCodec* codec, size_t index, off_t offset,
                                            size_t size, uint64_t timeUs, uint32_t flags) {
    return With(codec, HOST_CALL_QUEUE_INPUT, [=](Codec& object) {
        return object.QueueInput(index, static_cast<size_t>(offset), size,
                                 static_cast<int64_t>(timeUs), flags);
    });
}

ssize_t AMediaCodec_dequeueOutputBuffer(AMediaCodec* codec, AMediaCodecBufferInfo* info,
                                        int64_t timeoutUs) {
    if (info == nullptr) {
        return AMEDIA_ERROR_INVALID_PARAMETER;
    }
    return With(codec, HOST_CALL_DEQUEUE_OUTPUT,
                [=](Codec& object) { return object.DequeueOutput(info, timeoutUs); });
}

uint8_t* AMediaCodec_getOutputBuffer(AMediaCodec* codec, size_t index, size_t* size) {
    return With(codec, 0, [=](Codec& object) { return object.OutputData(index, size); });
}

AMediaFormat* AMediaCodec_getOutputFormat(AMediaCodec* codec) {
    return With(codec, HOST_CALL_GET_OUTPUT_FORMAT, [](Codec& object) {
        const auto format = object.OutputFormat();
        return format ? Describe(*format) : nullptr;
    });
}

media_status_t AMediaCodec_releaseOutputBuffer(AMediaCodec* codec, size_t index, bool render) {
    return With(codec, HOST_CALL_RELEASE_OUTPUT,
                [=](Codec& object) { return object.ReleaseOutput(index, render, std::nullopt); });
}

media_status_t AMediaCodec_releaseOutputBufferAtTime(AMediaCodec* codec, size_t index,
                                                     int64_t timestampNs) {
    return With(codec, HOST_CALL_RELEASE_OUTPUT,
                [=](Codec& object) { return object.ReleaseOutput(index, true, timestampNs); });
}

}  // extern "C"
