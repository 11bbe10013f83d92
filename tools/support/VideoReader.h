#pragma once

#include <optional>
#include <utility>

#include "support/OwedFrames.h"
#include "support/VideoFile.h"

/// Decodes the pictures of a video, of a single picture or of a numbered sequence of pictures, in
/// the order in which they are shown.
class VideoReader {
public:
    /// \param startSeconds frames before this time are left out
    /// \throws ToolError
    explicit VideoReader(std::string path, double startSeconds = 0.0)
        : VideoReader(VideoFile(std::move(path), startSeconds)) {}
    /// \param file nothing was read from it yet
    explicit VideoReader(VideoFile file);

    /// The next frame, valid until the next call; null at the end, or if the file breaks off. Its
    /// pts is its time in ticks of Times().Clock().
    const AVFrame* Next();

    /// As Next(), for the first frame. \throws ToolError if there is none
    const AVFrame& First();

    const VideoFile& File() const { return file_; }
    const FrameTimes& Times() const { return times_; }

    /// Frames that should have been among those read so far and could not be decoded.
    int64_t Lost() const;

    /// Frames that were delivered with flaws.
    int64_t Damaged() const { return damaged_; }

private:
    void OpenDecoder();
    const AVCodec* FindDecoder() const;
    bool Decode();
    void Feed();

    VideoFile file_;
    FrameTimes times_;
    LibavPtr<AVCodecContext> decoder_;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
    bool started_ = false;
    std::optional<OwedFrames> owed_;
    bool drained_ = false;
    int64_t failed_ = 0;  ///< Decoder errors.
    int64_t damaged_ = 0;
};
