#include "Clip.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "vornplay/UnitReader.h"

extern "C" {
#include <libavutil/opt.h>
}

namespace {

constexpr int kFramesPerSecond = 25;

void Check(int result, const char* step) {
    if (result < 0) {
        throw std::runtime_error(std::string("generating a clip: ") + step + ": " +
                                 LibavMessage(result));
    }
}

LibavPtr<AVCodecContext> OpenEncoder(int width, int height, int slices) {
    const AVCodec* codec = avcodec_find_encoder_by_name("libx264");
    Check(codec != nullptr ? 0 : AVERROR_ENCODER_NOT_FOUND, "libx264");
    LibavPtr<AVCodecContext> encoder(avcodec_alloc_context3(codec));
    encoder->width = width;
    encoder->height = height;
    encoder->pix_fmt = AV_PIX_FMT_YUV420P;
    encoder->colorspace = height > kTelevisionHeight ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
    encoder->color_range = AVCOL_RANGE_MPEG;
    encoder->time_base = {1, kFramesPerSecond};
    encoder->max_b_frames = 0;
    encoder->slices = slices;
    encoder->log_level_offset = AV_LOG_TRACE;
    av_opt_set(encoder->priv_data, "preset", "veryfast", 0);
    av_opt_set(encoder->priv_data, "crf", "23", 0);
    Check(avcodec_open2(encoder.get(), codec, nullptr), "opening");
    return encoder;
}

/// A sine of 256 steps around 0.
const std::array<int, 256>& Wave() {
    static const auto wave = [] {
        constexpr double kStep = 2 * 3.14159265358979 / 256;
        constexpr double kHeight = 40;
        std::array<int, 256> steps{};
        for (size_t i = 0; i < steps.size(); ++i) {
            steps.at(i) =
                static_cast<int>(std::lround(kHeight * std::sin(kStep * static_cast<double>(i))));
        }
        return steps;
    }();
    return wave;
}

/// \param noise the generator's state.
uint8_t Level(int x, int y, int time, uint32_t& noise) {
    constexpr int kMiddle = 128;
    noise = noise * 1664525U + 1013904223U;
    const auto wave = [](int phase) { return Wave()[static_cast<size_t>(phase & 0xFF)]; };
    return static_cast<uint8_t>(kMiddle + wave(3 * x + y + 7 * time) + wave(2 * y - x + 4 * time) +
                                static_cast<int>(noise >> 30U));
}

void Fill(AVFrame& frame, int time) {
    uint32_t noise = static_cast<uint32_t>(time) + 1;
    for (int plane = 0; plane < 3; ++plane) {
        const int shift = plane == 0 ? 0 : 1;
        for (int y = 0; y < frame.height >> shift; ++y) {
            uint8_t* row = frame.data[plane] + static_cast<ptrdiff_t>(y) * frame.linesize[plane];
            for (int x = 0; x < frame.width >> shift; ++x) {
                row[x] = Level(x + plane * 50, y, time, noise);
            }
        }
    }
}

LibavPtr<AVFrame> Picture(const AVCodecContext& encoder, int time) {
    LibavPtr<AVFrame> frame(av_frame_alloc());
    frame->width = encoder.width;
    frame->height = encoder.height;
    frame->format = encoder.pix_fmt;
    frame->pts = time;
    Check(av_frame_get_buffer(frame.get(), 0), "a frame");
    Fill(*frame, time);
    return frame;
}

void Receive(AVCodecContext& encoder, Clip& clip) {
    LibavPtr<AVPacket> packet(av_packet_alloc());
    while (avcodec_receive_packet(&encoder, packet.get()) == 0) {
        clip.units.push_back(std::move(packet));
        packet.reset(av_packet_alloc());
    }
}

}  // namespace

Clip LoadClip(const std::string& path, size_t count) {
    VideoFile file(path);
    UnitReader reader(file);
    const AVCodecParameters& codec = file.Codec();
    Clip clip = {codec.width, codec.height, codec.video_delay, {}};
    while (const AVPacket* unit = clip.units.size() < count ? reader.Next() : nullptr) {
        clip.units.emplace_back(av_packet_clone(unit));
    }
    return clip;
}

Clip GenerateClip(int width, int height, size_t count, int slices) {
    const auto encoder = OpenEncoder(width, height, slices);
    Clip clip = {width, height, 0, {}};
    for (size_t i = 0; i < count; ++i) {
        const auto picture = Picture(*encoder, static_cast<int>(i));
        Check(avcodec_send_frame(encoder.get(), picture.get()), "encoding");
        Receive(*encoder, clip);
    }
    Check(avcodec_send_frame(encoder.get(), nullptr), "encoding");
    Receive(*encoder, clip);
    return clip;
}
