#include <linux_platform/Host.h>

#include "Codec.h"
#include "HostDecoder.h"

struct HostDecoder {
    std::shared_ptr<Codec> codec;
};

namespace {

thread_local std::weak_ptr<Codec> currentCodec;

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

extern "C" {

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
