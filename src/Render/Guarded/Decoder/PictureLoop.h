#pragma once

#include <media/NdkMediaCodec.h>

#include <atomic>
#include <memory>

#include "../DecoderSource.h"
#include "DecoderStatus.h"
#include "src/Render/OESRenderer/SharedCodec.h"

struct CodecDelete {
    void operator()(AMediaCodec* codec) const { AMediaCodec_delete(codec); }
};
using Codec = std::unique_ptr<AMediaCodec, CodecDelete>;

/// What the GL thread and the decoder thread share. Both own it: a decoder thread that is in a long
/// call outlives the renderer.
class PictureLoop {
public:
    /// \param started configured and started; not null.
    PictureLoop(Codec started, const DecoderSettings& settings);

    /// Hands pictures to the surface until stop(), or until the decoder fails.
    /// \thread the decoder thread.
    void run();

    /// \name The GL thread's side
    /// \{
    SharedCodec& codec() { return codec_; }
    DecoderStatus& status() { return status_; }
    /// The thread ends after the call under way.
    void stop() { stopped_ = true; }
    /// Drops all units and pictures. \return of the platform.
    media_status_t flush(std::chrono::milliseconds wait);
    /// Whether the picture of the time stamp \p stamp came after the last flush.
    bool isCurrent(int64_t stamp) const;

    /// \}

    /// \thread any.
    bool endOfStream() const { return endedAt_ == flushes_; }

private:
    bool step();
    void readFormat();
    bool handOn(size_t index, const AMediaCodecBufferInfo& info, unsigned flushes);

    SharedCodec codec_;
    DecoderStatus status_;
    const int32_t maxPictureSize_;
    void (*const onPicture_)(void*);
    void* const listener_;
    std::atomic<bool> stopped_{false};
    std::atomic<unsigned> flushes_{0};    ///< What came before the last one is void.
    std::atomic<unsigned> endedAt_{~0U};  ///< flushes_ when the last picture came out.
    std::atomic<uint64_t> pictures_{0};   ///< The newest one's number.
    uint64_t firstCurrent_ = 1;           ///< The GL thread's.
};
