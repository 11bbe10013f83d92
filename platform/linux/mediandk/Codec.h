#pragma once

#include <media/NdkMediaCodec.h>

#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "DecodeSession.h"
#include "DecoderBehavior.h"
#include "FrameFlow.h"
#include "WindowRenderer.h"

/// A codec with its states. Thread-safe: a call that waits for buffers holds the session instead of
/// the lock, and ends when the session stops.
class Codec {
public:
    /// \param strict as HostPlatform_setStrict describes.
    Codec(std::string mimeType, const HostBehavior& behavior, bool strict)
        : mimeType_(std::move(mimeType)), strict_(strict), behavior_(behavior) {}
    ~Codec() { Stop(); }
    Codec(const Codec&) = delete;
    Codec& operator=(const Codec&) = delete;

    media_status_t Configure(const AMediaFormat& format, ANativeWindow* window, uint32_t flags);
    media_status_t Start();
    media_status_t Stop();
    media_status_t Flush();
    media_status_t SetWindow(ANativeWindow* window);

    ssize_t DequeueInput(int64_t timeoutUs);
    uint8_t* InputData(size_t index, size_t* capacity);
    media_status_t QueueInput(size_t index, size_t offset, size_t size, int64_t timeUs,
                              uint32_t flags);

    ssize_t DequeueOutput(AMediaCodecBufferInfo* info, int64_t timeoutUs);
    uint8_t* OutputData(size_t index, size_t* size);
    /// \return nothing before Start().
    std::optional<PictureFormat> OutputFormat();
    media_status_t ReleaseOutput(size_t index, bool render, std::optional<int64_t> timestampNs);

    /// \name For the host
    /// \{
    FrameFlow& Flow() { return *flow_; }
    DecoderBehavior& Behavior() { return behavior_; }
    bool IsStrict() const { return strict_; }
    /// Waits like DequeueInput(), but takes no buffer. \return 0 or DequeueInput()'s error.
    ssize_t WaitForInput(int64_t timeoutUs);
    /// \return 0 before Start().
    size_t InputCapacity();
    /// \}

private:
    struct Configuration {
        PictureFormat expected;  ///< Before the first picture.
        InputBuffers::Settings input;
        std::vector<uint8_t> parameterSets;
        int transform;
        std::shared_ptr<WindowRenderer> renderer;
    };

    std::shared_ptr<DecodeSession> Session();
    std::shared_ptr<DecodeSession> NewSession(std::unique_ptr<VideoDecoder> decoder,
                                              const PictureFormat& announced);
    std::shared_ptr<WindowRenderer> NewRenderer(ANativeWindow* window);
    std::shared_ptr<WindowRenderer> Renderer();
    void Show(Picture picture, std::optional<int64_t> timestampNs);

    size_t InputCapacity(const AMediaFormat& format) const;

    const std::string mimeType_;
    const bool strict_;
    DecoderBehavior behavior_;
    const std::shared_ptr<FrameFlow> flow_ = std::make_shared<FrameFlow>();
    std::mutex mutex_;
    std::optional<Configuration> configuration_;
    std::shared_ptr<DecodeSession> session_;
};
