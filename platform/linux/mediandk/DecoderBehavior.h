#pragma once

#include <linux_platform/Host.h>
#include <media/NdkMediaCodec.h>

#include <mutex>
#include <optional>

/// Plays the faults and habits that the host sets for a decoder. Thread-safe.
class DecoderBehavior {
public:
    explicit DecoderBehavior(const HostBehavior& settings) : settings_(settings) {}

    void Set(const HostBehavior& settings);
    HostBehavior Get() const;

    /// \param call of HostCall. \return AMEDIA_OK, or the error that the call returns.
    media_status_t ErrorOf(uint32_t call) const;

    /// Waits as long as a call of the output side takes.
    void DelayOutput() const;

    /// \return a notice that AMediaCodec_dequeueOutputBuffer returns before the next picture.
    std::optional<ssize_t> TakeNotice();
    void CountPicture();

private:
    mutable std::mutex mutex_;
    HostBehavior settings_;
    int64_t pictures_ = 0;
    int notices_ = 0;  ///< Given since the last picture.
};
