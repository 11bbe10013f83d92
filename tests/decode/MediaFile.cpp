#include "MediaFile.h"

#include <algorithm>

#include "export/Muxer.h"

void WriteMedia(const std::string& path, const AVCodecContext& encoder,
                const std::vector<TestUnit>& units) {
    Muxer file(path, av_guess_format(nullptr, path.c_str(), nullptr)->name);
    const AVStream& video = file.AddEncoded(encoder);
    file.Begin({});
    const LibavPtr<AVPacket> packet(av_packet_alloc());
    for (const TestUnit& unit : units) {
        file.Check(av_new_packet(packet.get(), static_cast<int>(unit.bytes.size())));
        std::copy(unit.bytes.begin(), unit.bytes.end(), packet->data);
        packet->pts = unit.timeUs;
        packet->dts = unit.decodingTimeUs;
        packet->duration = kFrameTimeUs;
        packet->flags = unit.key ? AV_PKT_FLAG_KEY : 0;
        file.Write(*packet, video, {1, AV_TIME_BASE});
    }
    file.Finish();
    file.Commit();
}

void WriteMedia(const std::string& path, TestStream stream, int count) {
    const std::string format = path.substr(path.rfind('.'));
    stream.parameterSetsApart = format == ".mp4" || format == ".mov" || format == ".mkv";
    av::CodecContext encoder;
    const auto units = Encode(stream, count, &encoder);
    WriteMedia(path, *encoder, units);
}
