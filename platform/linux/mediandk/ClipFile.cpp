#include "ClipFile.h"

extern "C" {
#include <libavutil/display.h>
}

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr AVRational kMicroseconds = {1, AV_TIME_BASE};
constexpr std::array<uint8_t, 4> kStartCode = {0, 0, 0, 1};
constexpr size_t kRecordHeader = 6;  ///< Of the record of parameter sets, up to the first set.

/// The record begins with its version, 1. With start codes, the parameter sets begin with 0.
bool HasRecord(const AVCodecParameters& codec) {
    return codec.codec_id == AV_CODEC_ID_H264 &&
           codec.extradata_size > static_cast<int>(kRecordHeader) && codec.extradata[0] == 1;
}

/// Appends one unit of the network abstraction layer.
/// \return the bytes read; 0 if they are not whole.
size_t Append(std::vector<uint8_t>& out, const uint8_t* data, size_t size, size_t lengthSize) {
    if (size < lengthSize) {
        return 0;
    }
    size_t length = 0;
    for (size_t i = 0; i < lengthSize; ++i) {
        length = length << 8 | data[i];
    }
    if (length > size - lengthSize) {
        return 0;
    }
    out.insert(out.end(), kStartCode.begin(), kStartCode.end());
    out.insert(out.end(), data + lengthSize, data + lengthSize + length);
    return lengthSize + length;
}

int64_t Rotation(const AVStream& stream) {
    const auto* matrix = reinterpret_cast<const int32_t*>(
        av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, nullptr));
    const double turned = matrix != nullptr ? av_display_rotation_get(matrix) : 0;
    return std::isnan(turned) ? 0 : (360 - std::lround(turned)) % 360;
}

}  // namespace

std::string ClipFile::Open(const std::string& address) {
    AVFormatContext* opened = nullptr;
    int status = avformat_open_input(&opened, address.c_str(), nullptr, nullptr);
    if (status >= 0) {
        file_.reset(opened);
        status = avformat_find_stream_info(opened, nullptr);
    }
    if (status >= 0) {
        return "";
    }
    file_.reset();
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text = {};
    return av_make_error_string(text.data(), text.size(), status);
}

int ClipFile::TrackCount() const {
    return file_ != nullptr ? static_cast<int>(file_->nb_streams) : 0;
}

std::string ClipFile::MimeType(int track) const {
    switch (Stream(track).codecpar->codec_id) {
        case AV_CODEC_ID_H264: return "video/avc";
        case AV_CODEC_ID_MJPEG: return "video/mjpeg";
        default: return "application/octet-stream";
    }
}

std::optional<ClipFile::VideoFormat> ClipFile::Format(int track) const {
    const AVStream& stream = Stream(track);
    if (stream.codecpar->codec_type != AVMEDIA_TYPE_VIDEO) {
        return std::nullopt;
    }
    const int64_t duration = stream.duration != AV_NOPTS_VALUE
                                 ? av_rescale_q(stream.duration, stream.time_base, kMicroseconds)
                                 : file_->duration;
    return VideoFormat{stream.codecpar->width, stream.codecpar->height, Rotation(stream),
                       std::lround(av_q2d(stream.avg_frame_rate)), std::max<int64_t>(0, duration)};
}

std::vector<uint8_t> ClipFile::ParameterSets(int track, int index) const {
    const AVCodecParameters& codec = *Stream(track).codecpar;
    std::vector<uint8_t> sets;
    if (!HasRecord(codec)) {
        return sets;
    }
    const auto size = static_cast<size_t>(codec.extradata_size);
    size_t at = kRecordHeader - 1;
    for (int kind = 0; kind <= index && at < size; ++kind) {
        int count = codec.extradata[at++] & (kind == 0 ? 0x1F : 0xFF);
        sets.clear();
        for (size_t read = 1; count > 0 && read > 0; --count) {
            read = Append(sets, codec.extradata + at, size - at, 2);
            at += read;
        }
    }
    return sets;
}

void ClipFile::Select(int track) {
    selected_ = track;
    Advance();
}

void ClipFile::Seek(int64_t timeUs) {
    const AVStream& stream = Stream(selected_);
    const int64_t time = av_rescale_q(timeUs, kMicroseconds, stream.time_base);
    if (av_seek_frame(file_.get(), selected_, time, AVSEEK_FLAG_BACKWARD) < 0) {
        av_seek_frame(file_.get(), selected_, time, 0);  // Before the first key frame.
    }
    Advance();
}

bool ClipFile::Advance() {
    do {
        av_packet_unref(packet_.get());
        atEnd_ = av_read_frame(file_.get(), packet_.get()) < 0;
    } while (!atEnd_ && packet_->stream_index != selected_);
    StoreUnit();
    return !atEnd_;
}

void ClipFile::StoreUnit() {
    unit_.clear();
    if (atEnd_) {
        return;
    }
    const AVCodecParameters& codec = *Stream(selected_).codecpar;
    const auto size = static_cast<size_t>(packet_->size);
    if (!HasRecord(codec)) {
        unit_.assign(packet_->data, packet_->data + size);
        return;
    }
    const size_t lengthSize = (codec.extradata[4] & 3U) + 1;
    for (size_t at = 0, read = 1; read > 0 && at < size; at += read) {
        read = Append(unit_, packet_->data + at, size - at, lengthSize);
    }
}

int64_t ClipFile::TimeUs() const {
    if (atEnd_) {
        return -1;
    }
    const int64_t time = packet_->pts != AV_NOPTS_VALUE ? packet_->pts : packet_->dts;
    return av_rescale_q(time, Stream(selected_).time_base, kMicroseconds);
}
