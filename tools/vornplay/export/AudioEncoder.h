#pragma once

#include <cstdint>
#include <memory>

#include "Muxer.h"

struct AVAudioFifo;
struct SwrContext;

/// An audio track that is decoded and compressed again, as AAC. Where sound is missing, it is
/// silent.
class AudioEncoder {
public:
    /// \param source what it is first made from. \throws ToolError
    AudioEncoder(Muxer& muxer, const AVStream& source);
    ~AudioEncoder();
    AudioEncoder(const AudioEncoder&) = delete;
    AudioEncoder& operator=(const AudioEncoder&) = delete;

    /// The packets that follow are of this track. \param shift added to their times, in seconds
    void Begin(const AVStream& source, double shift);
    void Write(const AVPacket& packet);
    /// Writes what is still held. \throws ToolError
    void Finish();

private:
    void OpenEncoder(const AVCodecParameters& source);
    void Decode(const AVPacket* packet);
    void Take(AVFrame& sound);
    bool Resample(AVFrame& sound);
    void Place(double seconds);
    void Silence(int64_t count);
    void Append();
    void Encode(bool all);
    void Receive();

    Muxer& muxer_;
    LibavPtr<AVCodecContext> encoder_;
    AVStream* stream_ = nullptr;
    LibavPtr<AVCodecContext> decoder_;
    double shift_ = 0.0;
    SwrContext* resampler_ = nullptr;
    AVAudioFifo* waiting_ = nullptr;  ///< Samples that are not compressed yet.
    int64_t position_ = 0;            ///< The time of the first of them, in samples.
    int64_t skip_ = 0;                ///< Samples to leave out of those that come next.
    LibavPtr<AVFrame> decoded_{av_frame_alloc()};
    LibavPtr<AVFrame> samples_{av_frame_alloc()};
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
};
