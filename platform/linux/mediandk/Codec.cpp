#include "Codec.h"

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <thread>

#include "MediaFormat.h"
#include "Wait.h"

namespace {

constexpr ssize_t kNotStarted = AMEDIA_ERROR_INVALID_OPERATION;

int32_t Int32Or0(const AMediaFormat& format, const char* name) {
    const auto* value = format.Find<int32_t>(name);
    return value != nullptr ? *value : 0;
}

size_t SizeOr0(const AMediaFormat& format, const char* name) {
    return static_cast<size_t>(std::max(0, Int32Or0(format, name)));
}

/// No unit is larger than an uncompressed picture.
size_t GenerousCapacity(const AMediaFormat& format) {
    constexpr size_t kLeast = 1 << 20;
    constexpr size_t kMostBytesPerPixel = 3;
    return std::max(kLeast, kMostBytesPerPixel * SizeOr0(format, AMEDIAFORMAT_KEY_WIDTH) *
                                SizeOr0(format, AMEDIAFORMAT_KEY_HEIGHT));
}

std::vector<uint8_t> ParameterSets(const AMediaFormat& format) {
    std::vector<uint8_t> sets;
    for (const char* key : {AMEDIAFORMAT_KEY_CSD_0, AMEDIAFORMAT_KEY_CSD_1}) {
        if (const auto* bytes = format.Find<AMediaFormat::Bytes>(key)) {
            sets.insert(sets.end(), bytes->begin(), bytes->end());
        }
    }
    return sets;
}

PictureFormat Expected(const AMediaFormat& format) {
    PictureFormat expected;
    expected.width = expected.bufferWidth = Int32Or0(format, AMEDIAFORMAT_KEY_WIDTH);
    expected.height = expected.bufferHeight = Int32Or0(format, AMEDIAFORMAT_KEY_HEIGHT);
    return expected;
}

int TransformFor(int degrees) {
    switch (degrees % 360) {
        case 90: return ANATIVEWINDOW_TRANSFORM_ROTATE_90;
        case 180: return ANATIVEWINDOW_TRANSFORM_ROTATE_180;
        case 270: return ANATIVEWINDOW_TRANSFORM_ROTATE_270;
        default: return ANATIVEWINDOW_TRANSFORM_IDENTITY;
    }
}

bool IsSize(int32_t value) {
    constexpr int32_t kLargest = 1 << 14;
    return value > 0 && value <= kLargest;
}

}  // namespace

media_status_t Codec::Configure(const AMediaFormat& format, ANativeWindow* window, uint32_t flags) {
    if (flags != 0) {
        return AMEDIA_ERROR_UNSUPPORTED;
    }
    if (!IsSize(Int32Or0(format, AMEDIAFORMAT_KEY_WIDTH)) ||
        !IsSize(Int32Or0(format, AMEDIAFORMAT_KEY_HEIGHT))) {
        return AMEDIA_ERROR_INVALID_PARAMETER;
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    if (configuration_) {
        return AMEDIA_ERROR_INVALID_OPERATION;
    }
    const int degrees = Int32Or0(format, "rotation-degrees") + behavior_.Get().rotation;
    configuration_ = Configuration{Expected(format),
                                   {InputCapacity(format), strict_},
                                   ParameterSets(format),
                                   TransformFor(degrees),
                                   nullptr};
    if (window != nullptr) {
        configuration_->renderer = NewRenderer(window);
    }
    return AMEDIA_OK;
}

media_status_t Codec::Start() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!configuration_ || session_ != nullptr) {
        return AMEDIA_ERROR_INVALID_OPERATION;
    }
    auto decoder = std::make_unique<VideoDecoder>(VideoDecoder::CodecOf(mimeType_),
                                                  configuration_->parameterSets, strict_);
    if (!decoder->IsOpen()) {
        return AMEDIA_ERROR_MALFORMED;
    }
    session_ = NewSession(std::move(decoder), PictureFormat());
    return AMEDIA_OK;
}

std::shared_ptr<DecodeSession> Codec::NewSession(std::unique_ptr<VideoDecoder> decoder,
                                                 const PictureFormat& announced) {
    flow_->Open();
    return std::make_shared<DecodeSession>(std::move(decoder), configuration_->input, announced,
                                           flow_);
}

media_status_t Codec::Stop() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (session_ != nullptr) {
        session_->Stop();
        flow_->Close();
    }
    session_ = nullptr;
    configuration_ = std::nullopt;
    return AMEDIA_OK;
}

media_status_t Codec::Flush() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (session_ == nullptr) {
        return AMEDIA_ERROR_INVALID_OPERATION;
    }
    auto decoder = session_->Stop();
    decoder->Flush();
    const PictureFormat announced = session_->Output().Format();
    session_ = NewSession(std::move(decoder), announced);
    return AMEDIA_OK;
}

media_status_t Codec::SetWindow(ANativeWindow* window) {
    if (window == nullptr) {
        return AMEDIA_ERROR_INVALID_PARAMETER;
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!configuration_ || configuration_->renderer == nullptr) {
        return AMEDIA_ERROR_INVALID_OPERATION;
    }
    configuration_->renderer = NewRenderer(window);
    flow_->Withdraw();
    return AMEDIA_OK;
}

ssize_t Codec::DequeueInput(int64_t timeoutUs) {
    const auto session = Session();
    return session != nullptr ? session->Input().Dequeue(timeoutUs) : kNotStarted;
}

uint8_t* Codec::InputData(size_t index, size_t* capacity) {
    const auto session = Session();
    return session != nullptr ? session->Input().Data(index, capacity) : nullptr;
}

media_status_t Codec::QueueInput(size_t index, size_t offset, size_t size, int64_t timeUs,
                                 uint32_t flags) {
    const auto session = Session();
    return session != nullptr ? session->Input().Queue(index, offset, size, timeUs, flags)
                              : AMEDIA_ERROR_INVALID_OPERATION;
}

ssize_t Codec::DequeueOutput(AMediaCodecBufferInfo* info, int64_t timeoutUs) {
    const auto session = Session();
    if (session == nullptr) {
        return kNotStarted;
    }
    behavior_.DelayOutput();
    if (const auto notice = behavior_.TakeNotice()) {
        return *notice;
    }
    const Deadline deadline(timeoutUs);
    if (!flow_->TakeTurn(timeoutUs)) {
        return AMEDIACODEC_INFO_TRY_AGAIN_LATER;
    }
    const ssize_t result = session->Output().Dequeue(info, deadline.LeftUs());
    if (strict_ && result == AMEDIA_ERROR_INVALID_OPERATION) {
        // A device may return late from a call that a stop interrupts.
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    if (result < 0) {
        flow_->EndTurn();
    } else if (info->size > 0) {
        behavior_.CountPicture();
    }
    return result;
}

uint8_t* Codec::OutputData(size_t index, size_t* size) {
    const auto session = Session();
    return session != nullptr && Renderer() == nullptr ? session->Output().Data(index, size)
                                                       : nullptr;
}

std::optional<PictureFormat> Codec::OutputFormat() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (session_ == nullptr) {
        return std::nullopt;
    }
    const PictureFormat announced = session_->Output().Format();
    return announced.width > 0 ? announced : configuration_->expected;
}

media_status_t Codec::ReleaseOutput(size_t index, bool render, std::optional<int64_t> timestampNs) {
    const auto session = Session();
    if (session == nullptr) {
        return AMEDIA_ERROR_INVALID_OPERATION;
    }
    Picture picture;
    const media_status_t status = session->Output().Release(index, &picture);
    if (status != AMEDIA_OK) {
        return status;
    }
    if (picture.frame == nullptr) {
        flow_->End();
    } else if (render) {
        Show(std::move(picture), timestampNs);
    } else {
        flow_->EndTurn();
    }
    return status;
}

void Codec::Show(Picture picture, std::optional<int64_t> timestampNs) {
    constexpr int64_t kNanosecondsPerMicrosecond = 1000;
    const auto renderer = Renderer();
    const int64_t unit = picture.unit;
    const int64_t shownNs = timestampNs.value_or(picture.timeUs * kNanosecondsPerMicrosecond);
    flow_->Offer();
    if (renderer != nullptr && renderer->Render(std::move(picture), shownNs)) {
        flow_->Deliver(unit);
    } else {
        flow_->Withdraw();
    }
}

ssize_t Codec::WaitForInput(int64_t timeoutUs) {
    const auto session = Session();
    return session != nullptr ? session->Input().WaitForFree(timeoutUs) : kNotStarted;
}

size_t Codec::InputCapacity() {
    const auto session = Session();
    return session != nullptr ? session->Input().Capacity() : 0;
}

size_t Codec::InputCapacity(const AMediaFormat& format) const {
    const size_t asked = behavior_.Get().inputCapacity;
    if (asked > 0) {
        return asked;
    }
    const size_t wanted = SizeOr0(format, AMEDIAFORMAT_KEY_MAX_INPUT_SIZE);
    return strict_ && wanted > 0 ? wanted : std::max(wanted, GenerousCapacity(format));
}

std::shared_ptr<DecodeSession> Codec::Session() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return session_;
}

std::shared_ptr<WindowRenderer> Codec::NewRenderer(ANativeWindow* window) {
    return std::make_shared<WindowRenderer>(window, configuration_->transform, flow_);
}

std::shared_ptr<WindowRenderer> Codec::Renderer() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return configuration_ ? configuration_->renderer : nullptr;
}
