#pragma once

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AudioEncoder.h"
#include "AudioInput.h"
#include "FrameSink.h"

/// Writes the audio of the inputs beside the drawn video: as it is, or compressed again.
class AudioWriter {
public:
    /// Adds a stream to \p muxer for each audio track that its container takes. \throws ToolError
    /// \param begin when the output begins in the video, in seconds
    AudioWriter(Muxer& muxer, const VideoFile& video, double begin, AudioWay way);

    const AudioReport& Report() const { return report_; }

    /// How long the audio begins before the video, in seconds. The output begins with the audio.
    double Lead() const { return lead_; }

    /// Goes on with the tracks of another input. \param seconds where it begins in the output
    /// \throws ToolError
    void Join(const VideoFile& video, double seconds);

    /// Writes the packets that begin before this time of the output. \throws ToolError
    void WriteUntil(double seconds);
    void WriteRest() { WriteUntil(std::numeric_limits<double>::infinity()); }
    /// Writes what encoders still hold. \throws ToolError
    void Finish();

private:
    struct Track {
        AVStream* copied = nullptr;
        std::unique_ptr<AudioEncoder> encoder;  ///< Neither: left out.
        /// The least time of the next copy.
        int64_t next = std::numeric_limits<int64_t>::min();

        bool IsWanted() const { return copied != nullptr || encoder != nullptr; }
    };

    void AddTrack(const AVStream& source, AudioWay way);
    void BeginWithAudio();
    void BeginTracks();
    bool Read();
    double NextSeconds() const { return input_->Seconds() + shift_; }
    void Write();
    void Copy(Track& track);

    Muxer& muxer_;
    AudioReport report_;
    std::optional<AudioInput> input_;
    std::vector<Track> tracks_;  ///< For each audio track of the first input.
    double shift_ = 0.0;         ///< From the input's time to the output's.
    double lead_ = 0.0;
    double start_ = 0.0;    ///< Of the input, in the output.
    bool trims_ = false;    ///< Leaves out what is before the start.
    bool waiting_ = false;  ///< A packet was read and not yet written.
};
