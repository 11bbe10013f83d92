#pragma once

#include <limits>
#include <memory>
#include <vector>

#include "FrameSink.h"
#include "Muxer.h"
#include "support/VideoFile.h"

/// Copies the audio of the input, as it is, beside the drawn video.
class AudioCopy {
public:
    /// Adds a stream to \p muxer for each audio stream that its container takes. \throws ToolError
    AudioCopy(Muxer& muxer, const VideoFile& video);

    const AudioReport& Report() const { return report_; }

    /// Copies the packets that begin before this time of the output. \throws ToolError
    void CopyUntil(double seconds);
    void CopyRest() { CopyUntil(std::numeric_limits<double>::infinity()); }

private:
    struct CloseInput {
        void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
    };
    struct Track {
        AVStream* output = nullptr;                          ///< Null: not copied.
        int64_t last = std::numeric_limits<int64_t>::min();  ///< The time of the last packet.
    };

    void Open(const VideoFile& video);
    void AddTracks();
    void Seek(const VideoFile& video);
    bool Read();
    bool IsWanted() const;
    void Copy();
    double NextSeconds() const;

    Muxer& muxer_;
    AudioReport report_;
    std::unique_ptr<AVFormatContext, CloseInput> input_;
    std::vector<Track> tracks_;  ///< For each stream of the input.
    double origin_;              ///< The output's start, in the input's time.
    bool trims_;                 ///< Leaves out what is before the start.
    bool waiting_ = false;       ///< packet_ holds the next one.
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
};
