#include "DecoderStatus.h"

#include <media/NdkMediaCodec.h>

#include <algorithm>

namespace {

void ReadCrop(AMediaFormat& format, VEDecoderState& state) {
    const bool cropped = AMediaFormat_getInt32(&format, "crop-left", &state.cropLeft) &&
                         AMediaFormat_getInt32(&format, "crop-top", &state.cropTop) &&
                         AMediaFormat_getInt32(&format, "crop-right", &state.cropRight) &&
                         AMediaFormat_getInt32(&format, "crop-bottom", &state.cropBottom);
    if (!cropped) {
        state.cropLeft = 0;
        state.cropTop = 0;
        state.cropRight = state.width - 1;
        state.cropBottom = state.height - 1;
    }
}

}  // namespace

bool IsNotice(ssize_t result) {
    return result < 0 && result >= AMEDIACODEC_INFO_OUTPUT_BUFFERS_CHANGED;
}

bool IsPlatformError(ssize_t result) {
    return (result < 0 && !IsNotice(result)) || result == AMEDIACODEC_ERROR_INSUFFICIENT_RESOURCE ||
           result == AMEDIACODEC_ERROR_RECLAIMED;
}

VEResult ResultOfPlatformError(ssize_t code) {
    return code == AMEDIACODEC_ERROR_RECLAIMED ? VE_ERROR_RECLAIMED : VE_ERROR_DECODER;
}

VEResult DecoderStatus::fail(VEResult result, int32_t platformCode) {
    const std::lock_guard<std::mutex> lock(mutex_);
    VEResult running = VE_OK;
    if (result_.compare_exchange_strong(running, result)) {
        formatAndCode_.platformCode = platformCode;
    }
    return result_;
}

VEResult DecoderStatus::failBy(ssize_t platformCode) {
    return fail(ResultOfPlatformError(platformCode), static_cast<int32_t>(platformCode));
}

void DecoderStatus::takeFormat(AMediaFormat& format) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (AMediaFormat_getInt32(&format, AMEDIAFORMAT_KEY_WIDTH, &formatAndCode_.width) &&
        AMediaFormat_getInt32(&format, AMEDIAFORMAT_KEY_HEIGHT, &formatAndCode_.height)) {
        ReadCrop(format, formatAndCode_);
    }
}

int32_t DecoderStatus::largestSide() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return std::max(formatAndCode_.width, formatAndCode_.height);
}

void DecoderStatus::read(VEDecoderState& state) const {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        state = formatAndCode_;
        state.result = result_;
    }
    state.unitsQueued = unitsQueued;
    state.unitsDropped = unitsDropped;
    state.picturesDecoded = picturesDecoded;
    state.unitCapacity = unitCapacity;
}
