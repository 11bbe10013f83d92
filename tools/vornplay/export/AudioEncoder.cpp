#include "AudioEncoder.h"

#include <algorithm>
#include <cmath>

#include "support/ToolError.h"

extern "C" {
#include <libavutil/audio_fifo.h>
#include <libswresample/swresample.h>
}

namespace {

constexpr AVSampleFormat kFormat = AV_SAMPLE_FMT_FLTP;

int RateFor(const AVCodec& codec, int rate) {
    for (const int* known = codec.supported_samplerates; known != nullptr && *known != 0; ++known) {
        if (*known == rate) {
            return rate;
        }
    }
    constexpr int kUsual = 48000;
    return kUsual;
}

}  // namespace

AudioEncoder::AudioEncoder(Muxer& muxer, const AVStream& source) : muxer_(muxer) {
    OpenEncoder(*source.codecpar);
    stream_ = &muxer_.AddEncoded(*encoder_);
    muxer_.CopyTags(source, *stream_);
    waiting_ = av_audio_fifo_alloc(kFormat, encoder_->ch_layout.nb_channels, encoder_->frame_size);
}

AudioEncoder::~AudioEncoder() {
    swr_free(&resampler_);
    av_audio_fifo_free(waiting_);
}

void AudioEncoder::OpenEncoder(const AVCodecParameters& source) {
    constexpr int kMostChannels = 6;
    constexpr int64_t kBitsPerChannel = 80'000;
    const AVCodec* codec = avcodec_find_encoder(AV_CODEC_ID_AAC);
    if (codec == nullptr) {
        throw ToolError(muxer_.Target() + ": libavcodec has no encoder for aac");
    }
    encoder_.reset(avcodec_alloc_context3(codec));
    const int channels = std::clamp(source.ch_layout.nb_channels, 1, kMostChannels);
    av_channel_layout_default(&encoder_->ch_layout, channels);
    encoder_->sample_fmt = kFormat;
    encoder_->sample_rate = RateFor(*codec, source.sample_rate);
    encoder_->time_base = {1, encoder_->sample_rate};
    encoder_->bit_rate = kBitsPerChannel * channels;
    encoder_->flags |= muxer_.HasGlobalHeader() ? AV_CODEC_FLAG_GLOBAL_HEADER : 0;
    muxer_.Check(avcodec_open2(encoder_.get(), codec, nullptr));
}

void AudioEncoder::Begin(const AVStream& source, double shift) {
    if (decoder_ != nullptr) {
        Decode(nullptr);
    }
    const AVCodec* codec = avcodec_find_decoder(source.codecpar->codec_id);
    decoder_.reset(avcodec_alloc_context3(codec));
    decoder_->pkt_timebase = source.time_base;
    if (codec == nullptr || avcodec_parameters_to_context(decoder_.get(), source.codecpar) < 0 ||
        avcodec_open2(decoder_.get(), codec, nullptr) < 0) {
        throw ToolError(muxer_.Target() + ": no decoder for the audio, which is " +
                        avcodec_get_name(source.codecpar->codec_id));
    }
    shift_ = shift;
    swr_free(&resampler_);
}

void AudioEncoder::Write(const AVPacket& packet) {
    Decode(&packet);
}

void AudioEncoder::Finish() {
    if (decoder_ != nullptr) {
        Decode(nullptr);
    }
    Encode(true);
    muxer_.Check(avcodec_send_frame(encoder_.get(), nullptr));
    Receive();
}

/// Packets that are broken leave silence.
void AudioEncoder::Decode(const AVPacket* packet) {
    avcodec_send_packet(decoder_.get(), packet);
    while (avcodec_receive_frame(decoder_.get(), decoded_.get()) == 0) {
        Take(*decoded_);
    }
}

void AudioEncoder::Take(AVFrame& sound) {
    if (sound.pts != AV_NOPTS_VALUE) {
        Place(static_cast<double>(sound.pts) * av_q2d(decoder_->pkt_timebase) + shift_);
    }
    if (!Resample(sound)) {
        swr_free(&resampler_);  // The sound has another form from here on.
        Resample(sound);
    }
    Append();
}

bool AudioEncoder::Resample(AVFrame& sound) {
    if (resampler_ == nullptr) {
        muxer_.Check(swr_alloc_set_opts2(
            &resampler_, &encoder_->ch_layout, kFormat, encoder_->sample_rate, &sound.ch_layout,
            static_cast<AVSampleFormat>(sound.format), sound.sample_rate, 0, nullptr));
    }
    av_frame_unref(samples_.get());
    samples_->format = kFormat;
    samples_->sample_rate = encoder_->sample_rate;
    muxer_.Check(av_channel_layout_copy(&samples_->ch_layout, &encoder_->ch_layout));
    return swr_convert_frame(resampler_, samples_.get(), &sound) >= 0;
}

/// Makes what comes next begin at this time of the output.
void AudioEncoder::Place(double seconds) {
    const int64_t tolerance = encoder_->sample_rate / 50;
    const int64_t next = position_ + av_audio_fifo_size(waiting_);
    const int64_t gap = std::llround(seconds * encoder_->sample_rate) - next;
    skip_ = gap < -tolerance ? -gap : 0;
    if (gap > tolerance) {
        Silence(gap);
    }
}

void AudioEncoder::Silence(int64_t count) {
    while (count > 0) {
        av_frame_unref(samples_.get());
        samples_->format = kFormat;
        samples_->nb_samples = static_cast<int>(std::min<int64_t>(count, encoder_->frame_size));
        muxer_.Check(av_channel_layout_copy(&samples_->ch_layout, &encoder_->ch_layout));
        muxer_.Check(av_frame_get_buffer(samples_.get(), 0));
        av_samples_set_silence(samples_->extended_data, 0, samples_->nb_samples,
                               encoder_->ch_layout.nb_channels, kFormat);
        count -= samples_->nb_samples;
        Append();
    }
}

void AudioEncoder::Append() {
    const int skipped = static_cast<int>(std::min<int64_t>(skip_, samples_->nb_samples));
    skip_ -= skipped;
    for (int i = 0; i < encoder_->ch_layout.nb_channels; ++i) {
        samples_->extended_data[i] += static_cast<size_t>(skipped) * sizeof(float);
    }
    muxer_.Check(av_audio_fifo_write(waiting_, reinterpret_cast<void**>(samples_->extended_data),
                                     samples_->nb_samples - skipped));
    Encode(false);
}

void AudioEncoder::Encode(bool all) {
    const int least = all ? 1 : encoder_->frame_size;
    while (av_audio_fifo_size(waiting_) >= least) {
        LibavPtr<AVFrame> frame(av_frame_alloc());
        frame->format = kFormat;
        frame->nb_samples = std::min(av_audio_fifo_size(waiting_), encoder_->frame_size);
        muxer_.Check(av_channel_layout_copy(&frame->ch_layout, &encoder_->ch_layout));
        muxer_.Check(av_frame_get_buffer(frame.get(), 0));
        av_audio_fifo_read(waiting_, reinterpret_cast<void**>(frame->extended_data),
                           frame->nb_samples);
        frame->pts = position_;
        position_ += frame->nb_samples;
        muxer_.Check(avcodec_send_frame(encoder_.get(), frame.get()));
        Receive();
    }
}

void AudioEncoder::Receive() {
    while (avcodec_receive_packet(encoder_.get(), packet_.get()) == 0) {
        muxer_.Write(*packet_, *stream_, encoder_->time_base);
    }
}
