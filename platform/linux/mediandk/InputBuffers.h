#pragma once

#include <media/NdkMediaCodec.h>

#include <array>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

#include "Av.h"

/// One access unit on its way to the decoder. The bytes are followed by zeros, as libavcodec wants.
struct InputUnit {
    size_t index;
    int64_t number;  ///< Counted from 0 in the order of queuing.
    const av::Buffer* storage;
    const uint8_t* data;
    size_t size;
    int64_t timeUs;
    uint32_t flags;
};

/// The numbered buffers through which a client hands units to the decoding thread:
/// free -> held by the client -> queued -> held by the decoder -> free.
class InputBuffers {
public:
    struct Settings {
        size_t capacity;
        bool strict;  ///< A buffer is a heap block of exactly the capacity, freed when queued.
    };
    explicit InputBuffers(const Settings& settings) : settings_(settings) {
        for (size_t index = 0; index < kCount; ++index) {
            free_.push_back(index);
        }
    }

    /// \name The client's side
    /// \{
    /// \return an index, AMEDIACODEC_INFO_TRY_AGAIN_LATER, or after Close() an error.
    ssize_t Dequeue(int64_t timeoutUs);
    /// \return null unless the client holds the buffer.
    uint8_t* Data(size_t index, size_t* capacity);
    media_status_t Queue(size_t index, size_t offset, size_t size, int64_t timeUs, uint32_t flags);
    /// Waits like Dequeue(), but takes no buffer. \return 0 or Dequeue()'s error.
    ssize_t WaitForFree(int64_t timeoutUs);
    size_t Capacity() const { return settings_.capacity; }
    /// \}

    /// \name The decoder's side
    /// \{
    /// Waits for a unit. \return none after Close().
    std::optional<InputUnit> Take();
    void GiveBack(const InputUnit& unit);
    /// \}

    /// Ends all waits. All later calls fail.
    void Close();

private:
    enum class Owner { kNobody, kClient, kDecoder };
    struct Slot {
        av::Buffer storage;  ///< Allocated on first use.
        std::unique_ptr<uint8_t[]> strictBlock;
        Owner owner = Owner::kNobody;
    };
    static constexpr size_t kCount = 8;

    ssize_t WaitForFree(std::unique_lock<std::mutex>& lock, int64_t timeoutUs);
    bool HeldByClient(size_t index) const;
    static uint8_t* CopyToStorage(Slot& slot, size_t offset, size_t size);

    const Settings settings_;
    std::mutex mutex_;
    std::condition_variable freed_;
    std::condition_variable queued_;
    std::array<Slot, kCount> slots_;
    std::deque<size_t> free_;
    std::deque<InputUnit> units_;
    int64_t queuedCount_ = 0;
    bool closed_ = false;
};
