#include "MediaFile.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

extern "C" {
#include <libavformat/avformat.h>
}

namespace {

void Check(int result) {
    if (result < 0) {
        throw std::runtime_error("writing a file for the test failed");
    }
}

struct CloseFile {
    void operator()(AVFormatContext* file) const {
        avio_closep(&file->pb);
        avformat_free_context(file);
    }
};
using File = std::unique_ptr<AVFormatContext, CloseFile>;

File Create(const std::string& path, const TestStream& stream,
            const std::vector<uint8_t>& parameterSets) {
    AVFormatContext* context = nullptr;
    Check(avformat_alloc_output_context2(&context, nullptr, nullptr, path.c_str()));
    File file(context);
    AVStream* video = avformat_new_stream(context, nullptr);
    AVCodecParameters& codec = *video->codecpar;
    codec.codec_type = AVMEDIA_TYPE_VIDEO;
    codec.codec_id = stream.encoder == "mjpeg" ? AV_CODEC_ID_MJPEG : AV_CODEC_ID_H264;
    codec.width = stream.width;
    codec.height = stream.height;
    codec.format = stream.layout;
    if (!parameterSets.empty()) {
        codec.extradata =
            static_cast<uint8_t*>(av_mallocz(parameterSets.size() + AV_INPUT_BUFFER_PADDING_SIZE));
        codec.extradata_size = static_cast<int>(parameterSets.size());
        std::copy(parameterSets.begin(), parameterSets.end(), codec.extradata);
    }
    video->time_base = {1, AV_TIME_BASE};
    video->avg_frame_rate = {AV_TIME_BASE, static_cast<int>(kFrameTimeUs)};
    Check(avio_open(&context->pb, path.c_str(), AVIO_FLAG_WRITE));
    Check(avformat_write_header(context, nullptr));
    return file;
}

/// Decoding times: in order, and none later than the picture's own time.
std::vector<int64_t> DecodingTimes(const std::vector<TestUnit>& units) {
    std::vector<int64_t> times;
    for (const TestUnit& unit : units) {
        times.push_back(unit.timeUs);
    }
    std::sort(times.begin(), times.end());
    int64_t delay = 0;
    for (size_t i = 0; i < units.size(); ++i) {
        delay = std::max(delay, times[i] - units[i].timeUs);
    }
    for (int64_t& time : times) {
        time -= delay;
    }
    return times;
}

}  // namespace

void WriteMedia(const std::string& path, const TestStream& stream,
                const std::vector<TestUnit>& units, const std::vector<uint8_t>& parameterSets) {
    const File file = Create(path, stream, parameterSets);
    const std::vector<int64_t> decodingTimes = DecodingTimes(units);
    const av::Packet packet(av_packet_alloc());
    for (size_t i = 0; i < units.size(); ++i) {
        Check(av_new_packet(packet.get(), static_cast<int>(units[i].bytes.size())));
        std::copy(units[i].bytes.begin(), units[i].bytes.end(), packet->data);
        packet->pts = units[i].timeUs;
        packet->dts = decodingTimes[i];
        packet->duration = kFrameTimeUs;
        const bool key =
            stream.encoder == "mjpeg" || i % static_cast<size_t>(stream.keyInterval) == 0;
        packet->flags = key ? AV_PKT_FLAG_KEY : 0;
        av_packet_rescale_ts(packet.get(), {1, AV_TIME_BASE}, file->streams[0]->time_base);
        Check(av_interleaved_write_frame(file.get(), packet.get()));
    }
    Check(av_write_trailer(file.get()));
}

void WriteMedia(const std::string& path, TestStream stream, int count) {
    const std::string format = path.substr(path.rfind('.'));
    stream.parameterSetsApart = format == ".mp4" || format == ".mov" || format == ".mkv";
    std::vector<uint8_t> parameterSets;
    const auto units = Encode(stream, count, &parameterSets);
    WriteMedia(path, stream, units, parameterSets);
}
