#include "MediaFile.h"

#include <algorithm>

#include "export/Muxer.h"

namespace {

/// The encoder's description of the stream.
LibavPtr<AVCodecContext> Encoder(const TestStream& stream,
                                 const std::vector<uint8_t>& parameterSets) {
    LibavPtr<AVCodecContext> codec(avcodec_alloc_context3(nullptr));
    codec->codec_type = AVMEDIA_TYPE_VIDEO;
    codec->codec_id = stream.encoder == "mjpeg" ? AV_CODEC_ID_MJPEG : AV_CODEC_ID_H264;
    codec->width = stream.width;
    codec->height = stream.height;
    codec->pix_fmt = stream.layout;
    codec->time_base = {1, AV_TIME_BASE};
    codec->framerate = {AV_TIME_BASE, static_cast<int>(kFrameTimeUs)};
    const size_t size = parameterSets.size();
    codec->extradata_size = static_cast<int>(size);
    codec->extradata = static_cast<uint8_t*>(av_mallocz(size + AV_INPUT_BUFFER_PADDING_SIZE));
    std::copy(parameterSets.begin(), parameterSets.end(), codec->extradata);
    return codec;
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
    Muxer file(path, av_guess_format(nullptr, path.c_str(), nullptr)->name);
    const AVStream& video = file.AddEncoded(*Encoder(stream, parameterSets));
    file.Begin({});
    const std::vector<int64_t> decodingTimes = DecodingTimes(units);
    const LibavPtr<AVPacket> packet(av_packet_alloc());
    for (size_t i = 0; i < units.size(); ++i) {
        file.Check(av_new_packet(packet.get(), static_cast<int>(units[i].bytes.size())));
        std::copy(units[i].bytes.begin(), units[i].bytes.end(), packet->data);
        packet->pts = units[i].timeUs;
        packet->dts = decodingTimes[i];
        packet->duration = kFrameTimeUs;
        const bool key =
            stream.encoder == "mjpeg" || i % static_cast<size_t>(stream.keyInterval) == 0;
        packet->flags = key ? AV_PKT_FLAG_KEY : 0;
        file.Write(*packet, video, {1, AV_TIME_BASE});
    }
    file.Finish();
}

void WriteMedia(const std::string& path, TestStream stream, int count) {
    const std::string format = path.substr(path.rfind('.'));
    stream.parameterSetsApart = format == ".mp4" || format == ".mov" || format == ".mkv";
    std::vector<uint8_t> parameterSets;
    const auto units = Encode(stream, count, &parameterSets);
    WriteMedia(path, stream, units, parameterSets);
}
