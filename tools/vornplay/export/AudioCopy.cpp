#include "AudioCopy.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace {

/// When the first drawn frame is shown.
double FirstFrameSeconds(const VideoFile& video) {
    constexpr double kTimeTolerance = 0.001;
    const AVStream& stream = video.Stream();
    const double first = stream.start_time == AV_NOPTS_VALUE
                             ? 0.0
                             : static_cast<double>(stream.start_time) * av_q2d(stream.time_base);
    const double rate = av_q2d(video.FrameRate());
    return first + std::ceil(std::max(0.0, video.StartSeconds() - kTimeTolerance) * rate) / rate;
}

/// What can be read a second time.
bool IsRegularFile(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

}  // namespace

AudioCopy::AudioCopy(Muxer& muxer, const VideoFile& video)
    : muxer_(muxer), origin_(FirstFrameSeconds(video)), trims_(video.StartSeconds() > 0.0) {
    if (IsRegularFile(video.Path())) {
        Open(video);
    }
}

void AudioCopy::Open(const VideoFile& video) {
    AVFormatContext* input = nullptr;
    if (avformat_open_input(&input, video.Path().c_str(), nullptr, nullptr) < 0) {
        return;
    }
    input_.reset(input);
    if (avformat_find_stream_info(input, nullptr) >= 0) {
        AddTracks();
    }
    if (report_.copied.empty()) {
        input_.reset();
    } else if (trims_) {
        Seek(video);
    }
}

void AudioCopy::AddTracks() {
    tracks_.resize(input_->nb_streams);
    for (unsigned i = 0; i < input_->nb_streams; ++i) {
        AVStream& stream = *input_->streams[i];
        const AVCodecID codec = stream.codecpar->codec_id;
        stream.discard = AVDISCARD_ALL;
        if (stream.codecpar->codec_type != AVMEDIA_TYPE_AUDIO) {
            continue;
        }
        if (!muxer_.Takes(codec)) {
            report_.leftOut.emplace_back(avcodec_get_name(codec));
            continue;
        }
        stream.discard = AVDISCARD_DEFAULT;
        tracks_[i].output = &muxer_.AddCopied(stream);
        report_.copied.emplace_back(avcodec_get_name(codec));
    }
}

/// Goes before the start; where that fails, the packets up to it are read and dropped.
void AudioCopy::Seek(const VideoFile& video) {
    constexpr double kEarlier = 1.0;
    const double ticks = (origin_ - kEarlier) / av_q2d(video.Stream().time_base);
    av_seek_frame(input_.get(), video.Stream().index, std::llround(ticks), AVSEEK_FLAG_BACKWARD);
}

void AudioCopy::CopyUntil(double seconds) {
    while ((waiting_ || Read()) && NextSeconds() < seconds) {
        Copy();
    }
}

/// Reads the next packet that is to be copied; false at the end.
bool AudioCopy::Read() {
    while (input_ != nullptr && !waiting_) {
        av_packet_unref(packet_.get());
        if (av_read_frame(input_.get(), packet_.get()) < 0) {
            input_.reset();
            return false;
        }
        waiting_ = IsWanted();
    }
    return waiting_;
}

/// Not where the times are unknown or go back, which no container takes.
bool AudioCopy::IsWanted() const {
    const auto index = static_cast<size_t>(packet_->stream_index);
    if (index >= tracks_.size() || tracks_[index].output == nullptr ||
        packet_->dts == AV_NOPTS_VALUE || packet_->pts == AV_NOPTS_VALUE) {
        return false;
    }
    return packet_->dts > tracks_[index].last && !(trims_ && NextSeconds() < 0.0);
}

double AudioCopy::NextSeconds() const {
    const AVRational timeBase = input_->streams[packet_->stream_index]->time_base;
    return static_cast<double>(packet_->pts) * av_q2d(timeBase) - origin_;
}

void AudioCopy::Copy() {
    Track& track = tracks_[static_cast<size_t>(packet_->stream_index)];
    const AVRational timeBase = input_->streams[packet_->stream_index]->time_base;
    const int64_t origin = std::llround(origin_ / av_q2d(timeBase));
    track.last = packet_->dts;
    packet_->pts -= origin;
    packet_->dts -= origin;
    waiting_ = false;
    muxer_.Write(*packet_, *track.output, timeBase);
}
