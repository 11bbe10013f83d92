#pragma once

#include <memory>
#include <vector>

#include "support/PacketQueue.h"
#include "support/VideoFile.h"

/// The audio packets of an input, in the order of the file, with stamps that rise.
class AudioInput {
public:
    /// Opens the file of \p video a second time. If it can be read only once, such as a pipe, takes
    /// what the reader of the video comes across.
    explicit AudioInput(const VideoFile& video);

    /// The audio tracks, which live as long as this and the video's file.
    const std::vector<AVStream*>& Tracks() const { return tracks_; }

    /// Goes to a time of the file, or before it; if that fails, reading begins at the beginning.
    void Seek(const VideoFile& video, double seconds);

    /// Reads the next packet. \return false if there is none, or none yet
    bool Read();
    AVPacket& Packet() { return *packet_; }
    /// The track of the packet, from 0 on.
    size_t Track() const { return track_; }
    /// When the packet begins, in the time of the file.
    double Seconds() const;

private:
    struct CloseInput {
        void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
    };
    struct Times {
        bool started = false;
        int64_t last = 0;  ///< When the last packet begins and ends.
        int64_t end = 0;
        int64_t offset = 0;  ///< Added since the stamps began again.
    };

    void Open(const VideoFile& video);
    bool ReadAny();
    bool FindTrack();
    void Repair(Times& times);

    std::unique_ptr<AVFormatContext, CloseInput> input_;
    std::shared_ptr<PacketQueue> queue_;
    std::vector<AVStream*> tracks_;
    std::vector<Times> times_;  ///< Of each track.
    size_t track_ = 0;
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
};
