#include "UnitReader.h"

#include "support/ToolError.h"

UnitReader::UnitReader(VideoFile& file) : file_(file) {
    // The filter does not change units that have start codes.
    const bool h264 = file.Codec().codec_id == AV_CODEC_ID_H264;
    const AVBitStreamFilter* type = av_bsf_get_by_name(h264 ? "h264_mp4toannexb" : "null");
    AVBSFContext* filter = nullptr;
    int result = type != nullptr ? av_bsf_alloc(type, &filter) : AVERROR_BSF_NOT_FOUND;
    filter_.reset(filter);
    if (result >= 0) {
        result = avcodec_parameters_copy(filter->par_in, &file.Codec());
    }
    if (result >= 0) {
        filter->time_base_in = file.Stream().time_base;
        result = av_bsf_init(filter);
    }
    if (result < 0) {
        throw ToolError(file.Path() + ": " + LibavMessage(result));
    }
}

AVPacket* UnitReader::Next() {
    av_packet_unref(unit_.get());
    AVPacket* packet = file_.Next();
    if (packet == nullptr) {
        return nullptr;
    }
    const int64_t pts = packet->pts;
    const int64_t dts = packet->dts;
    // Both filters give one unit per packet.
    if (av_bsf_send_packet(filter_.get(), packet) < 0 ||
        av_bsf_receive_packet(filter_.get(), unit_.get()) < 0) {
        av_packet_unref(unit_.get());
        unit_->pts = pts;
        unit_->dts = dts;
    }
    return unit_.get();
}
