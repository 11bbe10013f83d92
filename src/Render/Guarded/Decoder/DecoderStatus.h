#pragma once

#include <sys/types.h>

#include <atomic>
#include <mutex>

#include "render/VERendererExt.h"

struct AMediaFormat;

/// What is known of a decoder.
///
/// \thread any.
class DecoderStatus {
public:
    /// VE_OK while the decoder runs. A failure is final.
    VEResult result() const { return result_; }
    /// Keeps the first failure. \return it.
    VEResult fail(VEResult result, int32_t platformCode = 0);
    /// The same by the platform's code.
    VEResult failBy(ssize_t platformCode);

    /// Takes size and crop from the decoder's output format.
    void takeFormat(AMediaFormat& format);
    /// Width or height, whichever is larger; 0 until known.
    int32_t largestSide() const;

    /// All but endOfStream.
    void read(VEDecoderState& state) const;

    std::atomic<uint64_t> unitsQueued{0};
    std::atomic<uint64_t> unitsDropped{0};
    std::atomic<uint64_t> picturesDecoded{0};
    std::atomic<size_t> unitCapacity{0};

private:
    std::atomic<VEResult> result_{VE_OK};
    mutable std::mutex mutex_;  ///< Of what follows; not locked for each picture.
    VEDecoderState formatAndCode_ = {};
};

/// The platform's decoder calls return indices, notices, and errors; some errors are positive.
bool IsPlatformError(ssize_t result);
/// Try again, or a change of format or buffers.
bool IsNotice(ssize_t result);
/// VE_ERROR_RECLAIMED or VE_ERROR_DECODER.
VEResult ResultOfPlatformError(ssize_t code);
