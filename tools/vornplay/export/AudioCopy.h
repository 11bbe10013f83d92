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
    /// \param begin when the output begins in the video, in seconds
    AudioCopy(Muxer& muxer, const VideoFile& video, double begin, bool copies);

    const AudioReport& Report() const { return report_; }

    /// How long the audio begins before the video, in seconds. The output begins with the audio.
    double Lead() const { return lead_; }

    /// Copies the packets that begin before this time of the output. \throws ToolError
    void CopyUntil(double seconds);
    void CopyRest() { CopyUntil(std::numeric_limits<double>::infinity()); }

private:
    struct CloseInput {
        void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
    };
    struct Track {
        AVStream* output = nullptr;  ///< Null: not copied.
        bool started = false;
        int64_t last = 0;  ///< When the last packet begins and ends.
        int64_t end = 0;
        int64_t offset = 0;  ///< Added since the stamps began again.
    };

    void Open(const VideoFile& video);
    void AddTracks();
    void BeginWithAudio();
    void Seek(const VideoFile& video);
    bool Read();
    bool IsWanted();
    void Repair(Track& track);
    void Copy();
    double NextSeconds() const;

    Muxer& muxer_;
    AudioReport report_;
    std::unique_ptr<AVFormatContext, CloseInput> input_;
    std::vector<Track> tracks_;  ///< For each stream of the input.
    double origin_;              ///< The output's start, in the input's time.
    double lead_ = 0.0;
    bool trims_;            ///< Leaves out what is before the start.
    bool waiting_ = false;  ///< packet_ holds the next one.
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
};
