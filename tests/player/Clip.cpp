#include "Clip.h"

#include <webp/demux.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <stdexcept>

#include "PlayerFixture.h"
#include "export/VideoTrack.h"
#include "support/FrameConverter.h"
#include "support/VideoReader.h"

namespace {

/// A track of noise.
class NoiseTrack {
public:
    NoiseTrack(Muxer& muxer, const char* name) : muxer_(muxer) {
        const AVCodec* codec = avcodec_find_encoder_by_name(name);
        encoder_.reset(avcodec_alloc_context3(codec));
        encoder_->sample_fmt = codec->sample_fmts[0];
        encoder_->sample_rate = kRate;
        encoder_->time_base = {1, kRate};
        encoder_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        av_channel_layout_default(&encoder_->ch_layout, 1);
        muxer.Check(avcodec_open2(encoder_.get(), codec, nullptr));
        stream_ = &muxer.AddEncoded(*encoder_);
        const int track = stream_->index;
        av_dict_set(&stream_->metadata, "language", track == 1 ? "deu" : "fra", 0);
        av_dict_set(&stream_->metadata, "title", ("Track " + std::to_string(track)).c_str(), 0);
    }

    void WriteUntil(double seconds) {
        while (static_cast<double>(samples_) / kRate < seconds) {
            frame_->format = encoder_->sample_fmt;
            frame_->nb_samples = encoder_->frame_size > 0 ? encoder_->frame_size : 1024;
            frame_->pts = samples_;
            samples_ += frame_->nb_samples;
            av_channel_layout_copy(&frame_->ch_layout, &encoder_->ch_layout);
            muxer_.Check(av_frame_get_buffer(frame_.get(), 0));
            Fill();
            Encode(frame_.get());
            av_frame_unref(frame_.get());
        }
    }

    void Finish() { Encode(nullptr); }

private:
    static constexpr int kRate = 48000;

    void Fill() {
        const bool floats = av_get_packed_sample_fmt(encoder_->sample_fmt) == AV_SAMPLE_FMT_FLT;
        for (int i = 0; i < frame_->nb_samples; ++i) {
            const int sample = static_cast<int>(noise_() % 20000) - 10000;
            if (floats) {
                reinterpret_cast<float*>(frame_->data[0])[i] = static_cast<float>(sample) / 32768;
            } else {
                reinterpret_cast<int16_t*>(frame_->data[0])[i] = static_cast<int16_t>(sample);
            }
        }
    }

    void Encode(const AVFrame* frame) {
        muxer_.Check(avcodec_send_frame(encoder_.get(), frame));
        while (avcodec_receive_packet(encoder_.get(), packet_.get()) == 0) {
            muxer_.Write(*packet_, *stream_, encoder_->time_base);
        }
    }

    Muxer& muxer_;
    LibavPtr<AVCodecContext> encoder_;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
    AVStream* stream_ = nullptr;
    int64_t samples_ = 0;
    std::minstd_rand noise_;
};

LibavPtr<AVFrame> MakePicture(Size size) {
    LibavPtr<AVFrame> picture(av_frame_alloc());
    picture->format = AV_PIX_FMT_YUV420P;
    picture->width = size.width;
    picture->height = size.height;
    av_frame_get_buffer(picture.get(), 0);
    return picture;
}

}  // namespace

void MakeClip(const std::string& path, const ClipKind& kind) {
    Muxer muxer(path, kind.container);
    VideoTrack video(muxer,
                     {AV_CODEC_ID_H264,
                      nullptr,
                      AV_PIX_FMT_YUV420P,
                      {{"crf", "1"}, {"x264-params", kind.interlaced ? "tff=1" : "tff=0"}}},
                     kind.size, kind.frameRate, kind.tags);
    std::vector<std::unique_ptr<NoiseTrack>> audio;
    for (const char* name : kind.audio) {
        audio.push_back(std::make_unique<NoiseTrack>(muxer, name));
    }
    muxer.Begin({});
    const ColorConverter converter(video.Encoder(), AV_PIX_FMT_RGBA);
    for (int i = 1; i <= kind.frames; ++i) {
        LibavPtr<AVFrame> picture = MakePicture(kind.size);
        converter.Convert(Solid(kind.size, FrameColor(i)).pixels.data(), *picture);
        video.Write(*picture);
        for (const auto& track : audio) {
            track->WriteUntil(video.Seconds());
        }
    }
    video.Finish();
    for (const auto& track : audio) {
        track->WriteUntil(video.Seconds() + 0.3);
        track->Finish();
    }
    muxer.Finish();
}

std::vector<AudioTrack> ReadAudio(const std::string& path) {
    AVFormatContext* input = nullptr;
    if (avformat_open_input(&input, path.c_str(), nullptr, nullptr) < 0) {
        throw std::runtime_error(path);
    }
    avformat_find_stream_info(input, nullptr);
    const auto tag = [](const AVStream& stream, const char* name) {
        const AVDictionaryEntry* entry = av_dict_get(stream.metadata, name, nullptr, 0);
        return std::string(entry != nullptr ? entry->value : "");
    };
    std::vector<AudioTrack> tracks(input->nb_streams);
    LibavPtr<AVPacket> packet(av_packet_alloc());
    for (; av_read_frame(input, packet.get()) >= 0; av_packet_unref(packet.get())) {
        const AVStream& stream = *input->streams[packet->stream_index];
        if (stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO) {
            AudioTrack& track = tracks.at(static_cast<size_t>(stream.index));
            track.language = tag(stream, "language");
            track.title = tag(stream, "title");
            track.packets.push_back({static_cast<double>(packet->pts) * av_q2d(stream.time_base),
                                     std::string(packet->data, packet->data + packet->size)});
        }
    }
    avformat_close_input(&input);
    tracks.erase(tracks.begin());  // The video.
    return tracks;
}

std::vector<Image> ReadFrames(const std::string& path) {
    std::vector<Image> frames;
    if (path.substr(path.size() - 5) == ".webp") {  // libavformat reads no animations.
        for (const auto& [image, end] : ReadWebp(path)) {
            frames.push_back(image);
        }
        return frames;
    }
    VideoReader reader(path);
    while (const AVFrame* frame = reader.Next()) {
        Image image({frame->width, frame->height});
        FrameConverter converter(image.size, AV_PIX_FMT_RGBA);
        std::copy_n(converter.Convert(*frame), image.pixels.size(), image.pixels.begin());
        frames.push_back(image);
    }
    EXPECT_EQ(reader.Lost() + reader.Damaged(), 0) << path;
    return frames;
}

std::vector<std::pair<Image, int>> ReadWebp(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const WebPData data = {reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()};
    const std::unique_ptr<WebPAnimDecoder, void (*)(WebPAnimDecoder*)> decoder(
        WebPAnimDecoderNew(&data, nullptr), WebPAnimDecoderDelete);
    std::vector<std::pair<Image, int>> frames;
    WebPAnimInfo info{};
    WebPAnimDecoderGetInfo(decoder.get(), &info);
    while (WebPAnimDecoderHasMoreFrames(decoder.get()) != 0) {
        uint8_t* pixels = nullptr;
        int end = 0;
        WebPAnimDecoderGetNext(decoder.get(), &pixels, &end);
        Image image({static_cast<int>(info.canvas_width), static_cast<int>(info.canvas_height)});
        std::copy_n(pixels, image.pixels.size(), image.pixels.begin());
        frames.emplace_back(image, end);
    }
    return frames;
}
