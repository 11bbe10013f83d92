#pragma once

#include <deque>
#include <mutex>
#include <utility>

#include "support/Libav.h"

/// Packets that one thread reads and another one takes.
class PacketQueue {
public:
    void Push(const AVPacket& packet) {
        LibavPtr<AVPacket> copy(av_packet_clone(&packet));
        const std::lock_guard<std::mutex> lock(mutex_);
        packets_.push_back(std::move(copy));
    }

    /// \return null if there is none now
    LibavPtr<AVPacket> Pop() {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (packets_.empty()) {
            return nullptr;
        }
        LibavPtr<AVPacket> packet = std::move(packets_.front());
        packets_.pop_front();
        return packet;
    }

private:
    std::mutex mutex_;
    std::deque<LibavPtr<AVPacket>> packets_;
};
