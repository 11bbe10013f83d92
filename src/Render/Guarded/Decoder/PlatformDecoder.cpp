// The platform's decoder behind a guarded renderer: an AMediaCodec that renders into a Surface.

#include <android/log.h>
#include <media/NdkMediaCodec.h>

#include <cstring>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "../DecoderSource.h"
#include "../Failure.h"
#include "JavaSurface.h"
#include "PictureLoop.h"
#include "PictureStamp.h"
#include "render/VELog.h"

namespace {

static_assert(int{VE_UNIT_CONFIG} == int{AMEDIACODEC_BUFFER_FLAG_CODEC_CONFIG}, "as the platform");
static_assert(int{VE_UNIT_END} == int{AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM}, "as the platform");

const char* MimeType(int32_t source) {
    return source == VE_SOURCE_H264 ? "video/avc" : "video/mjpeg";
}

struct FormatDelete {
    void operator()(AMediaFormat* format) const { AMediaFormat_delete(format); }
};

void RequireDone(media_status_t status, const char* step) {
    if (status != AMEDIA_OK) {
        LogWithFileTag(ANDROID_LOG_INFO, "src/Render/Guarded/Decoder/PlatformDecoder.cpp",
                       "the decoder failed at %s: %d", step, status);
        throw Failure{ResultOfPlatformError(status)};
    }
}

/// A decoder that renders into \p window, started. Throws Failure.
Codec StartCodec(const DecoderSettings& settings, ANativeWindow& window) {
    const std::unique_ptr<AMediaFormat, FormatDelete> format(AMediaFormat_new());
    Require(format != nullptr, VE_ERROR_MEMORY);
    AMediaFormat_setInt32(format.get(), AMEDIAFORMAT_KEY_WIDTH, settings.width);
    AMediaFormat_setInt32(format.get(), AMEDIAFORMAT_KEY_HEIGHT, settings.height);
    AMediaFormat_setString(format.get(), AMEDIAFORMAT_KEY_MIME, MimeType(settings.source));
    Codec codec(AMediaCodec_createDecoderByType(MimeType(settings.source)));
    Require(codec != nullptr, VE_ERROR_NO_DECODER);
    RequireDone(AMediaCodec_configure(codec.get(), format.get(), &window, nullptr, 0), "configure");
    RequireDone(AMediaCodec_start(codec.get()), "start");
    return codec;
}

class PlatformDecoder final : public DecoderSource {
public:
    /// Throws Failure, std::bad_alloc, and std::system_error without a thread.
    explicit PlatformDecoder(const DecoderSettings& settings)
        : closeWait_(settings.closeWaitMs),
          surface_(std::in_place, static_cast<JavaVM*>(settings.javaVM), settings.externalTexture),
          window_(surface_->window()),
          loop_(std::make_shared<PictureLoop>(StartCodec(settings, *window_), settings)) {
        try {
            thread_ = std::thread([loop = loop_] { loop->run(); });
        } catch (...) {
            loop_->codec().shutDown();
            throw;
        }
    }

    VEResult queue(const VEUnit& unit) override {
        const VEResult result = tryQueue(unit);
        ++(result == VE_OK ? status().unitsQueued : status().unitsDropped);
        return result;
    }

    VEResult flush() override;
    VEResult latch(LatchedPicture& picture) override;

    void state(VEDecoderState& state) const override {
        status().read(state);
        state.endOfStream = loop_->endOfStream();
    }
    void* surface() const override { return surface_->surface(); }
    void* surfaceTexture() const override { return surface_->surfaceTexture(); }
    VEResult close(bool contextLost) override;

private:
    static constexpr ssize_t kNone = -1;

    DecoderStatus& status() const { return loop_->status(); }
    VEResult tryQueue(const VEUnit& unit);
    VEResult takeInput(int64_t waitUs);
    VEResult fill(const VEUnit& unit);

    const std::chrono::milliseconds closeWait_;
    std::optional<JavaSurface> surface_;  ///< Until close.
    Window window_;
    std::shared_ptr<PictureLoop> loop_;
    std::thread thread_;
    ssize_t input_ = kNone;  ///< A buffer that the last unit did not use.
    bool ended_ = false;     ///< The end was queued.
    int64_t latched_ = 0;    ///< Time stamp of the picture in the texture.
};

VEResult PlatformDecoder::tryQueue(const VEUnit& unit) {
    if (status().result() != VE_OK) {
        return status().result();
    }
    if (ended_ || unit.ptsUs > picture_stamp::kMostUs || unit.ptsUs < -picture_stamp::kMostUs) {
        return VE_ERROR_ARGUMENT;
    }
    const VEResult result = takeInput(unit.waitUs);
    return result == VE_OK ? fill(unit) : result;
}

VEResult PlatformDecoder::takeInput(int64_t waitUs) {
    if (input_ == kNone) {
        const ssize_t index = AMediaCodec_dequeueInputBuffer(loop_->codec().get(), waitUs);
        if (IsNotice(index)) {
            return VE_AGAIN;
        }
        if (IsPlatformError(index)) {
            return status().failBy(index);
        }
        input_ = index;
    }
    return VE_OK;
}

VEResult PlatformDecoder::fill(const VEUnit& unit) {
    AMediaCodec* codec = loop_->codec().get();
    const auto index = static_cast<size_t>(input_);
    size_t capacity = 0;
    uint8_t* buffer = AMediaCodec_getInputBuffer(codec, index, &capacity);
    if (buffer == nullptr) {
        return status().failBy(AMEDIA_ERROR_UNKNOWN);
    }
    status().unitCapacity = capacity;
    if (unit.size > capacity) {
        return VE_ERROR_UNIT_SIZE;
    }
    if (unit.size > 0) {
        std::memcpy(buffer, unit.data, unit.size);
    }
    input_ = kNone;
    const media_status_t queued =
        AMediaCodec_queueInputBuffer(codec, index, 0, unit.size, static_cast<uint64_t>(unit.ptsUs),
                                     static_cast<uint32_t>(unit.flags));
    if (queued != AMEDIA_OK) {
        return status().failBy(queued);
    }
    ended_ = (unit.flags & VE_UNIT_END) != 0;
    return VE_OK;
}

VEResult PlatformDecoder::flush() {
    if (status().result() != VE_OK) {
        return status().result();
    }
    const media_status_t flushed = loop_->flush(closeWait_);
    input_ = kNone;
    ended_ = false;
    return flushed == AMEDIA_OK ? VE_OK : status().failBy(flushed);
}

VEResult PlatformDecoder::latch(LatchedPicture& picture) {
    picture.isNew = false;
    try {
        // A picture of before a flush may stand in front of a newer one.
        for (int64_t before = latched_; (latched_ = surface_->latch()) != before;
             before = latched_) {
            if (loop_->isCurrent(latched_)) {
                surface_->matrix(picture.matrix);
                picture.ptsUs = picture_stamp::PtsUs(latched_);
                picture.isNew = true;
                picture.isOutdated = false;
                return VE_OK;
            }
            picture.isOutdated = true;
        }
        return VE_OK;
    } catch (const Failure& failure) {
        return failure.result;
    }
}

VEResult PlatformDecoder::close(bool /*contextLost*/) {
    loop_->stop();
    const bool idle = loop_->codec().shutDown(closeWait_);
    if (idle) {
        thread_.join();  // It is in no call: it ends at its next look at the flag.
    } else {
        thread_.detach();
    }
    window_.reset();
    surface_.reset();
    return idle ? VE_OK : VE_BUSY;
}

}  // namespace

bool HasDecoders() {
    return true;
}

VEResult CheckDecoder(int32_t source) {
    return Codec(AMediaCodec_createDecoderByType(MimeType(source))) != nullptr
               ? VE_OK
               : VE_ERROR_NO_DECODER;
}

VEResult OpenDecoder(const DecoderSettings& settings, std::unique_ptr<DecoderSource>& decoder) {
    if (settings.javaVM == nullptr) {
        return VE_ERROR_JAVA;
    }
    try {
        decoder = std::make_unique<PlatformDecoder>(settings);
        return VE_OK;
    } catch (const Failure& failure) {
        return failure.result;
    } catch (const std::system_error&) {
        return VE_ERROR_MEMORY;
    }
}
