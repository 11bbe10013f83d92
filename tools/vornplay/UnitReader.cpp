#include "UnitReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "support/ToolError.h"

namespace {

/// Whether a unit with start codes holds a sequence parameter set.
bool HasParameterSets(const AVPacket& unit) {
    constexpr uint8_t kType = 0x1F;
    constexpr uint8_t kSequenceParameterSet = 7;
    const uint8_t* end = unit.data + unit.size;
    constexpr std::array<uint8_t, 3> kStartCode = {0, 0, 1};
    const uint8_t* found = unit.data;
    while ((found = std::search(found, end, kStartCode.begin(), kStartCode.end())) < end - 3) {
        found += kStartCode.size();
        if ((*found & kType) == kSequenceParameterSet) {
            return true;
        }
    }
    return false;
}

}  // namespace

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
    } else if (!std::exchange(started_, true)) {
        AddParameterSets();
    }
    return unit_.get();
}

/// The filter adds them only to the key frames that reset the decoder, and reading may begin at
/// another one.
void UnitReader::AddParameterSets() {
    const AVCodecParameters& codec = *filter_->par_out;
    if (codec.codec_id != AV_CODEC_ID_H264 || codec.extradata_size == 0 ||
        HasParameterSets(*unit_)) {
        return;
    }
    const int unit = unit_->size;
    if (av_packet_make_writable(unit_.get()) < 0 ||
        av_grow_packet(unit_.get(), codec.extradata_size) < 0) {
        throw ToolError(file_.Path() + ": out of memory");
    }
    std::copy_backward(unit_->data, unit_->data + unit, unit_->data + unit_->size);
    std::copy_n(codec.extradata, codec.extradata_size, unit_->data);
}
