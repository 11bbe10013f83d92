#include "HostDecoder.h"

#include <system/window.h>

#include <utility>

#include "Codec.h"

struct HostDecoder {
    std::shared_ptr<Codec> codec;
};

namespace {

thread_local std::weak_ptr<Codec> currentCodec;
thread_local HostBehavior nextBehavior = {};

HostResult ResultOf(ssize_t status) {
    if (status >= 0) {
        return HOST_READY;
    }
    return status == AMEDIACODEC_INFO_TRY_AGAIN_LATER ? HOST_TIMED_OUT : HOST_CLOSED;
}

}  // namespace

void SetCurrentCodec(const std::shared_ptr<Codec>& codec) {
    currentCodec = codec;
}

HostBehavior TakeNextBehavior() {
    return std::exchange(nextBehavior, {});
}

extern "C" {

void HostPlatform_setStrict(int on) {
    native_window_set_strict(on);
}

HostDecoder* HostDecoder_acquire(void) {
    auto codec = currentCodec.lock();
    return codec != nullptr ? new HostDecoder{std::move(codec)} : nullptr;
}

void HostDecoder_release(HostDecoder* decoder) {
    delete decoder;
}

void HostDecoder_setLockStep(HostDecoder* decoder, int on) {
    decoder->codec->Flow().SetLockStep(on != 0);
}

void HostDecoder_setStepping(HostDecoder* decoder, int on) {
    decoder->codec->Flow().SetStepping(on != 0);
}

void HostDecoder_step(HostDecoder* decoder) {
    decoder->codec->Flow().Step();
}

void HostDecoder_setReorderDepth(HostDecoder* decoder, int pictures) {
    decoder->codec->Flow().SetReorderDepth(pictures);
}

void HostDecoder_setBehavior(HostDecoder* decoder, const HostBehavior* behavior) {
    const HostBehavior settings = behavior != nullptr ? *behavior : HostBehavior{};
    if (decoder != nullptr) {
        decoder->codec->Behavior().Set(settings);
    } else {
        nextBehavior = settings;
    }
}

size_t HostDecoder_inputCapacity(HostDecoder* decoder) {
    return decoder->codec->InputCapacity();
}

HostResult HostDecoder_waitForInput(HostDecoder* decoder, int64_t timeoutUs) {
    return ResultOf(decoder->codec->WaitForInput(timeoutUs));
}

HostResult HostDecoder_endStream(HostDecoder* decoder, int64_t timeoutUs) {
    const ssize_t index = decoder->codec->DequeueInput(timeoutUs);
    if (index < 0) {
        return ResultOf(index);
    }
    return ResultOf(decoder->codec->QueueInput(static_cast<size_t>(index), 0, 0, 0,
                                               AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM));
}

HostResult HostDecoder_waitForFrame(HostDecoder* decoder, int64_t seen, int64_t timeoutUs,
                                    HostFrames* frames) {
    return decoder->codec->Flow().Wait(seen, timeoutUs, frames);
}

}  // extern "C"
