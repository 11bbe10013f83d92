#include "PictureLoop.h"

#include <thread>

#include "PictureStamp.h"

namespace {

constexpr int64_t kOutputTimeoutUs = 1000;
constexpr ssize_t kClosed = -1'000'000;  // No result of the platform.

}  // namespace

PictureLoop::PictureLoop(Codec started, const DecoderSettings& settings)
    : codec_(started.release()),
      maxPictureSize_(settings.maxPictureSize),
      onPicture_(settings.onPicture),
      listener_(settings.listener) {}

void PictureLoop::run() {
    while (!stopped_ && status_.result() == VE_OK) {
        if (!step() && !stopped_) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
}

/// \return false without having waited for a picture.
bool PictureLoop::step() {
    const unsigned flushes = flushes_;
    AMediaCodecBufferInfo info = {};
    const auto index = codec_.use(kClosed, [&](AMediaCodec* codec) {
        return AMediaCodec_dequeueOutputBuffer(codec, &info, kOutputTimeoutUs);
    });
    if (index == kClosed || stopped_ || flushes != flushes_) {
        return false;  // A flush or the end makes the result void, be it a picture or an error.
    }
    if (IsPlatformError(index)) {
        status_.failBy(index);
        return false;
    }
    if (index == AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED) {
        readFormat();
    }
    return index < 0 || handOn(static_cast<size_t>(index), info, flushes);
}

void PictureLoop::readFormat() {
    codec_.use(false, [this](AMediaCodec* codec) {
        AMediaFormat* format = AMediaCodec_getOutputFormat(codec);
        if (format != nullptr) {
            status_.takeFormat(*format);
            AMediaFormat_delete(format);
        }
        return true;
    });
    if (status_.largestSide() > maxPictureSize_) {
        status_.fail(VE_ERROR_PICTURE_SIZE);
    }
}

bool PictureLoop::handOn(size_t index, const AMediaCodecBufferInfo& info, unsigned flushes) {
    const bool isPicture = info.size != 0;
    const auto result = codec_.use(AMEDIA_OK, [&](AMediaCodec* codec) {
        // Numbered before the look at flushes_: a flush that comes between the two either sees the
        // number or is seen.
        const uint64_t number = isPicture ? ++pictures_ : 0;
        if (flushes != flushes_) {
            return AMEDIA_OK;  // The flush took the buffer back.
        }
        return isPicture ? AMediaCodec_releaseOutputBufferAtTime(
                               codec, index, picture_stamp::Make(info.presentationTimeUs, number))
                         : AMediaCodec_releaseOutputBuffer(codec, index, false);
    });
    if (stopped_ || flushes != flushes_) {
        return false;
    }
    if (result != AMEDIA_OK) {
        status_.failBy(result);
        return false;
    }
    if ((info.flags & AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM) != 0) {
        endedAt_ = flushes;
    }
    if (isPicture) {
        ++status_.picturesDecoded;
        if (onPicture_ != nullptr) {
            // As a call of the decoder, so that none begins after the end, which waits for it.
            codec_.use(false, [this](AMediaCodec*) { return onPicture_(listener_), true; });
        }
    }
    return true;
}

media_status_t PictureLoop::flush(std::chrono::milliseconds wait) {
    ++flushes_;
    codec_.pause(wait);
    const media_status_t result = AMediaCodec_flush(codec_.get());
    firstCurrent_ = pictures_ + 1;
    codec_.resume();
    return result;
}

bool PictureLoop::isCurrent(int64_t stamp) const {
    return picture_stamp::Number(stamp, pictures_) >= firstCurrent_;
}
