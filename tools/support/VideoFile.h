#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/FrameTimes.h"
#include "support/Libav.h"
#include "support/PacketQueue.h"
#include "support/PictureShape.h"

/// How the start of a file is found.
enum class Seeking {
    kAsFits,    ///< By stamps, unless they turn out to begin again.
    kByStamps,  ///< By the index, or by the stamps.
    kByReading  ///< By reading the file from its beginning.
};

/// The packets of the video in a file, of a single picture or of a numbered sequence of pictures.
class VideoFile {
public:
    /// \param path         "-" for stdin
    /// \param startSeconds The packets begin with the last key frame before this time. The caller
    ///        drops the frames before it.
    /// \throws ToolError
    explicit VideoFile(std::string path, double startSeconds = 0.0,
                       Seeking seeking = Seeking::kAsFits);

    /// From now on Next() also keeps the packets of the audio, if the file can be read only once.
    void KeepAudio();
    /// The packets that were kept; null if the file can be read again.
    const std::shared_ptr<PacketQueue>& AudioPackets() const { return audio_; }

    /// The next packet, valid until the next call; null at the end, or if the file breaks off.
    AVPacket* Next();

    const std::string& Path() const { return path_; }
    const AVFormatContext& Context() const { return *input_; }
    double StartSeconds() const { return startSeconds_; }
    const AVInputFormat& Format() const { return *input_->iformat; }
    const AVStream& Stream() const { return *stream_; }
    const AVCodecParameters& Codec() const { return *stream_->codecpar; }
    /// Whether it is a file in a directory, and no pipe, device or URL.
    bool IsRegular() const;
    /// The index of the stream that players choose; negative if there is no sound.
    int BestAudio() const;
    /// The parameters of each audio track.
    std::vector<const AVCodecParameters*> Audio() const;
    /// The name of the codec of each audio track.
    std::vector<std::string> AudioCodecs() const;
    AVRational FrameRate() const;
    /// The matrix that turns pictures upright, or null.
    const int32_t* DisplayMatrix() const;
    /// \param turn by the display matrix
    PictureShape Shape(bool turn) const;

    /// The message for a file of which no frame can be decoded.
    std::string NoPicture() const;

    /// How many frames there should be from the start on; 0 if the file does not say.
    int64_t ExpectedFrames() const;

    /// When the video ends, in seconds from its beginning; 0 if the file does not say.
    double EndSeconds() const;

    /// Frames that are missing because the file breaks off; known after the last packet.
    int64_t Missing() const { return missing_; }

    /// For the frames of this file, before the first packet was read.
    FrameTimes Times() const { return {*stream_, FrameRate(), FirstTick()}; }

    /// Whether a time, in the stream's units, lies before the start. Not if it is unknown.
    bool IsBeforeStart(int64_t time) const;
    bool IsBeforeStart(double seconds) const;
    /// A time in the stream's units, in seconds from the beginning of the file.
    double SecondsOf(int64_t time) const;
    /// The start, in the stream's units.
    int64_t StartTime() const;

private:
    struct CloseInput {
        void operator()(AVFormatContext* input) const { avformat_close_input(&input); }
    };

    void Open();
    void Seek(Seeking seeking);
    void Note(const AVPacket& packet);
    void KeepIfAudio(const AVPacket& packet);
    void End(int readResult);
    bool IsStream() const;
    bool IsIndexed() const;
    int64_t MissingFrames() const;
    int64_t MissingTime() const;
    int64_t UnreadSamples() const;
    int64_t FirstTick() const;

    std::string path_;
    double startSeconds_;
    std::unique_ptr<AVFormatContext, CloseInput> input_;
    AVStream* stream_ = nullptr;
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
    std::shared_ptr<PacketQueue> audio_;
    int64_t packets_ = 0;
    int64_t readTicks_ = 0;       ///< How far the packets reach, in the stream's time.
    bool lastIsCorrupt_ = false;  ///< The last packet is not whole.
    int64_t missing_ = 0;
};
