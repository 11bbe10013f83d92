#include "Muxer.h"

#include <set>
#include <string_view>

#include "support/ToolError.h"

void Muxer::CloseOutput::operator()(AVFormatContext* output) const {
    avio_closep(&output->pb);
    avformat_free_context(output);
}

Muxer::Muxer(const std::string& target, const char* container, Existing existing)
    : target_(target == "-" ? "stdout" : target) {
    std::string path = "pipe:1";
    if (target != "-") {
        file_.emplace(target, existing);
        path = file_->Path();
    }
    AVFormatContext* output = nullptr;
    Check(avformat_alloc_output_context2(&output, nullptr, container, path.c_str()));
    output_.reset(output);
    Check(avio_open(&output_->pb, path.c_str(), AVIO_FLAG_WRITE));
}

void Muxer::Commit() {
    if (file_.has_value()) {
        file_->Commit();
    }
}

void Muxer::Check(int result) const {
    if (result < 0) {
        throw ToolError(target_ + ": cannot be written: " + LibavMessage(result));
    }
}

bool Muxer::Takes(AVCodecID codec) const {
    // libavformat does not know this of its MPEG-TS.
    static const std::set<AVCodecID> kMpegTs = {AV_CODEC_ID_H264, AV_CODEC_ID_HEVC, AV_CODEC_ID_AAC,
                                                AV_CODEC_ID_MP2,  AV_CODEC_ID_MP3,  AV_CODEC_ID_AC3,
                                                AV_CODEC_ID_EAC3, AV_CODEC_ID_OPUS};
    return std::string_view(output_->oformat->name) == "mpegts"
               ? kMpegTs.count(codec) > 0
               : avformat_query_codec(output_->oformat, codec, FF_COMPLIANCE_NORMAL) == 1;
}

AVStream& Muxer::AddStream() {
    AVStream* stream = avformat_new_stream(output_.get(), nullptr);
    Check(stream != nullptr ? 0 : AVERROR(ENOMEM));
    return *stream;
}

AVStream& Muxer::AddEncoded(const AVCodecContext& encoder) {
    AVStream& stream = AddStream();
    Check(avcodec_parameters_from_context(stream.codecpar, &encoder));
    stream.time_base = encoder.time_base;
    stream.avg_frame_rate = encoder.framerate;
    return stream;
}

AVStream& Muxer::AddCopied(const AVStream& source) {
    AVStream& stream = AddStream();
    Check(avcodec_parameters_copy(stream.codecpar, source.codecpar));
    stream.codecpar->codec_tag = 0;  // Each container has its own.
    stream.time_base = source.time_base;
    stream.disposition = source.disposition;
    CopyTags(source, stream);
    return stream;
}

void Muxer::CopyTags(const AVStream& source, AVStream& stream) const {
    // Only what stays true of a part.
    for (const char* name : {"language", "title"}) {
        if (const auto* tag = av_dict_get(source.metadata, name, nullptr, 0)) {
            Check(av_dict_set(&stream.metadata, name, tag->value, 0));
        }
    }
}

void Muxer::Begin(const LibavOptions& options) {
    AVDictionary* dictionary = nullptr;
    for (const auto& [name, value] : options) {
        av_dict_set(&dictionary, name.c_str(), value.c_str(), 0);
    }
    const int result = avformat_write_header(output_.get(), &dictionary);
    av_dict_free(&dictionary);
    Check(result);
}

void Muxer::Write(AVPacket& packet, const AVStream& stream, AVRational timeBase) {
    packet.stream_index = stream.index;
    packet.pos = -1;
    av_packet_rescale_ts(&packet, timeBase, stream.time_base);
    Check(av_interleaved_write_frame(output_.get(), &packet));
}

void Muxer::Finish() {
    Check(av_write_trailer(output_.get()));
    Check(avio_closep(&output_->pb));
}
