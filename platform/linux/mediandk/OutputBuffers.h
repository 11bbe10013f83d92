#pragma once

#include <media/NdkMediaCodec.h>

#include <array>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <vector>

#include "Picture.h"

/// The numbered buffers through which the decoding thread hands pictures to a client:
/// free -> queued -> held by the client -> free.
class OutputBuffers {
public:
    /// \param announced the format that the client already knows.
    explicit OutputBuffers(const PictureFormat& announced) : announced_(announced) {}

    /// Waits until there is room. \return false after Close().
    bool Push(Picture picture);

    /// \name The client's side
    /// \{
    /// \return an index, AMEDIACODEC_INFO_TRY_AGAIN_LATER, AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED,
    ///         or after Close() an error.
    ssize_t Dequeue(AMediaCodecBufferInfo* info, int64_t timeoutUs);
    /// \return the picture's planes; null unless the client holds a buffer with a picture.
    uint8_t* Data(size_t index, size_t* size);
    media_status_t Release(size_t index, Picture* picture);
    PictureFormat Format();
    /// \}

    /// Ends all waits. All later calls fail.
    void Close();

private:
    enum class Owner { kNobody, kQueue, kClient };
    struct Slot {
        Owner owner = Owner::kNobody;
        Picture picture;
        std::vector<uint8_t> planes;
    };
    /// Enough for a client that keeps some.
    static constexpr size_t kCount = 4;
    /// Enough to keep the decoder busy while the client shows a picture, and few enough for the
    /// pictures to stay in the processor's cache.
    static constexpr size_t kMostQueued = 1;

    bool HasRoom();
    Slot* FindFree();
    bool HeldByClient(size_t index) const;

    std::mutex mutex_;
    std::condition_variable roomMade_;
    std::condition_variable pushed_;
    std::array<Slot, kCount> slots_;
    std::deque<Slot*> queue_;
    PictureFormat announced_;
    bool closed_ = false;
};
