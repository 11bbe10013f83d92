#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "support/Libav.h"

/// Decodes the pictures of a video, of a single picture or of a numbered sequence of pictures, in
/// the order in which they are shown.
class VideoReader {
public:
    /// \param startSeconds frames before this time are left out
    /// \throws ToolError
    explicit VideoReader(std::string path, double startSeconds = 0.0);

    /// The next frame, valid until the next call; null at the end, or where the file breaks off.
    const AVFrame* Next();

    /// As Next, but for the first frame. \throws ToolError when there is none
    const AVFrame& First();

    AVRational FrameRate() const;

    /// How many frames there should be from the start on; 0 when the file does not tell.
    int64_t ExpectedFrames() const;

    /// Frames that should have been among those read so far and could not be decoded.
    int64_t Lost() const { return lost_; }

    /// Frames that were delivered with flaws.
    int64_t Damaged() const { return damaged_; }

private:
    struct CloseInput {
        void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
    };

    void OpenInput();
    void OpenDecoder();
    const AVCodec* FindDecoder() const;
    void Seek();
    bool Decode();
    void Feed();
    void Drain(int readResult);
    void Note(const AVPacket& packet);
    int64_t MissingFrames() const;
    int64_t MissingTime() const;
    int64_t FirstTick() const;
    bool IsBeforeStart() const;

    std::string path_;
    double startSeconds_;
    std::unique_ptr<AVFormatContext, CloseInput> input_;
    AVStream* stream_ = nullptr;
    LibavPtr<AVCodecContext> decoder_;
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
    int64_t packets_ = 0;
    int64_t readTicks_ = 0;       ///< How far the packets reach, in the stream's time.
    bool lastIsCorrupt_ = false;  ///< The last packet is not whole.
    int64_t lost_ = 0;
    int64_t damaged_ = 0;
};
