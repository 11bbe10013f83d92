#include "Clip.h"

#include <webp/demux.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "PlayerFixture.h"
#include "support/FrameConverter.h"
#include "support/VideoReader.h"

namespace {

/// ffmpeg's options for the pictures' tags, in which it also converts them.
std::string Options(const ColorTags& tags) {
    const std::string range = av_color_range_name(tags.range);
    const std::string matrix = av_color_space_name(tags.matrix);
    return " -vf scale=out_range=" + range + ":out_color_matrix=" + matrix + " -color_range " +
           range + " -colorspace " + matrix + " -color_primaries " +
           av_color_primaries_name(tags.primaries) + " -color_trc " +
           av_color_transfer_name(tags.transfer);
}

void WriteFrames(const std::string& path, const ClipKind& kind) {
    std::ofstream file(path, std::ios::binary);
    for (int i = 1; i <= kind.frames; ++i) {
        const Image frame = Solid(kind.size, FrameColor(i));
        file.write(reinterpret_cast<const char*>(frame.pixels.data()),
                   static_cast<std::streamsize>(frame.pixels.size()));
    }
}

}  // namespace

void MakeClip(const std::string& path, const ClipKind& kind) {
    const std::string rate =
        std::to_string(kind.frameRate.num) + "/" + std::to_string(kind.frameRate.den);
    const double seconds = kind.frames / av_q2d(kind.frameRate);
    const std::string frames = path + ".rgba";
    WriteFrames(frames, kind);
    std::ostringstream inputs;
    std::ostringstream tracks;
    inputs << " -f rawvideo -pix_fmt rgba -framerate " << rate << " -s " << kind.size.width << "x"
           << kind.size.height << " -i " << frames;
    tracks << " -map 0";
    for (size_t i = 0; i < kind.audio.size(); ++i) {
        inputs << " -f lavfi -t " << seconds + 0.3 << " -i anoisesrc=r=48000:seed=1";
        tracks << " -map " << i + 1 << " -c:a:" << i << " " << kind.audio[i]
               << " -metadata:s:a:" << i << " language=" << (i == 0 ? "deu" : "fra")
               << " -metadata:s:a:" << i << " title=Track" << i + 1;
    }
    const std::string command =
        "ffmpeg -v error -y" + inputs.str() + tracks.str() + Options(kind.tags) +
        " -pix_fmt yuv420p -c:v libx264 -crf 1 -x264-params tff=" + (kind.interlaced ? "1" : "0") +
        " -f " + kind.container + " " + path;
    // NOLINTNEXTLINE(cert-env33-c): the test names its own files.
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    std::filesystem::remove(frames);
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
