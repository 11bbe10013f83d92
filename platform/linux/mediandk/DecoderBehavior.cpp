#include "DecoderBehavior.h"

#include <array>
#include <chrono>
#include <thread>

void DecoderBehavior::Set(const HostBehavior& settings) {
    const std::lock_guard<std::mutex> lock(mutex_);
    settings_ = settings;
}

HostBehavior DecoderBehavior::Get() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return settings_;
}

media_status_t DecoderBehavior::ErrorOf(uint32_t call) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    if ((settings_.failing & call) == 0 || pictures_ < settings_.failAfterPictures) {
        return AMEDIA_OK;
    }
    return settings_.error != 0 ? static_cast<media_status_t>(settings_.error)
                                : AMEDIA_ERROR_UNKNOWN;
}

void DecoderBehavior::DelayOutput() const {
    std::this_thread::sleep_for(std::chrono::microseconds(Get().outputDelayUs));
}

std::optional<ssize_t> DecoderBehavior::TakeNotice() {
    constexpr std::array<ssize_t, 2> kNotices = {AMEDIACODEC_INFO_OUTPUT_BUFFERS_CHANGED,
                                                 AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED};
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto next = static_cast<size_t>(notices_);
    if (settings_.notices == 0 || next == kNotices.size()) {
        return std::nullopt;
    }
    ++notices_;
    return kNotices[next];
}

void DecoderBehavior::CountPicture() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++pictures_;
    notices_ = 0;
}
