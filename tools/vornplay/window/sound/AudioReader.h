#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/VideoFile.h"
#include "window/sound/Speaker.h"

struct SwrContext;

/// Decodes the sound of a file as a speaker plays it: one sample after the other from a time on,
/// with silence in its gaps.
class AudioReader {
public:
    /// \param file the clip's; it is opened again for the sound
    /// \param origin the time stamp of the first picture, in seconds
    /// \return null if the file has no sound that can be decoded
    static std::unique_ptr<AudioReader> Open(const VideoFile& file, double origin);

    /// The next sample is that of a time. \param byReading does not trust the stamps: reads the
    /// file from its beginning
    void Seek(double seconds, bool byReading);
    /// Some samples; none at the end.
    std::vector<Sample> Next();
    /// When the sound ends, as far as the file says; else 0.
    double EndSeconds() const { return endSeconds_; }

private:
    struct CloseInput {
        void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
    };
    struct FreeConverter {
        void operator()(SwrContext* converter) const;
    };

    AudioReader() = default;
    bool OpenInput();
    bool OpenDecoder();
    bool Decode();
    bool Feed();
    bool Configure();
    std::vector<Sample> Convert();
    void Align();
    std::vector<Sample> Silence();
    void NoteEnd(const AVStream& known);
    double SecondsOf(int64_t stamp) const;

    std::string path_;
    int track_ = 0;  ///< The index of the stream.
    double origin_ = 0.0;
    std::unique_ptr<AVFormatContext, CloseInput> input_;
    AVStream* stream_ = nullptr;
    LibavPtr<AVCodecContext> decoder_;
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
    LibavPtr<AVFrame> configured_{av_frame_alloc()};  ///< The kind of frames that it converts.
    std::unique_ptr<SwrContext, FreeConverter> converter_;
    double endSeconds_ = 0.0;
    std::vector<Sample> pending_;    ///< Decoded, and not given out yet.
    double held_ = 0.0;              ///< What the converter held back before that.
    size_t silence_ = 0;             ///< Samples to give out before.
    std::optional<double> decoded_;  ///< How far what was decoded reaches.
    bool begun_ = false;             ///< Samples were given out since the seek.
    double next_ = 0.0;              ///< The time of the next sample.
    double offset_ = 0.0;            ///< Added since the stamps began again.
};
