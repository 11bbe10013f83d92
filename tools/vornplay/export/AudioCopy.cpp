#include "AudioCopy.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace {

/// When time 0 of the video is, in the stamps of the file.
double Origin(const VideoFile& video) {
    const AVStream& stream = video.Stream();
    return stream.start_time == AV_NOPTS_VALUE
               ? 0.0
               : static_cast<double>(stream.start_time) * av_q2d(stream.time_base);
}

/// What can be read a second time.
bool IsRegularFile(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

}  // namespace

AudioCopy::AudioCopy(Muxer& muxer, const VideoFile& video, double begin, bool copies)
    : muxer_(muxer), origin_(Origin(video) + begin), trims_(video.StartSeconds() > 0.0) {
    if (copies && IsRegularFile(video.Path())) {
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
    } else {
        BeginWithAudio();
    }
}

/// Players would skip what has a negative time.
void AudioCopy::BeginWithAudio() {
    for (unsigned i = 0; i < input_->nb_streams; ++i) {
        const AVStream& stream = *input_->streams[i];
        if (tracks_[i].output != nullptr && stream.start_time != AV_NOPTS_VALUE) {
            const double begin = static_cast<double>(stream.start_time) * av_q2d(stream.time_base);
            lead_ = std::max(lead_, origin_ - begin);
        }
    }
    origin_ -= lead_;
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

bool AudioCopy::IsWanted() {
    const auto index = static_cast<size_t>(packet_->stream_index);
    if (index >= tracks_.size() || tracks_[index].output == nullptr) {
        return false;
    }
    Repair(tracks_[index]);
    return !trims_ || NextSeconds() >= 0.0;
}

/// Packets without a stamp, or with one that steps back, follow the packet before.
void AudioCopy::Repair(Track& track) {
    AVPacket& packet = *packet_;
    const int64_t stamp = packet.dts != AV_NOPTS_VALUE ? packet.dts : packet.pts;
    int64_t time = stamp != AV_NOPTS_VALUE ? stamp + track.offset : track.end;
    const int64_t rounding = packet.duration / 2;
    if (track.started && time < track.end - rounding) {
        track.offset += track.end - time;
        time = track.end;
    }
    if (track.started) {
        time = std::max(time, track.last + 1);
    }
    packet.pts = time;  // Audio is heard in the order of decoding.
    packet.dts = time;
    track.started = true;
    track.last = time;
    track.end = time + packet.duration;
}

double AudioCopy::NextSeconds() const {
    const AVRational timeBase = input_->streams[packet_->stream_index]->time_base;
    return static_cast<double>(packet_->pts) * av_q2d(timeBase) - origin_;
}

void AudioCopy::Copy() {
    Track& track = tracks_[static_cast<size_t>(packet_->stream_index)];
    const AVRational timeBase = input_->streams[packet_->stream_index]->time_base;
    const int64_t origin = std::llround(origin_ / av_q2d(timeBase));
    packet_->pts -= origin;
    packet_->dts -= origin;
    waiting_ = false;
    muxer_.Write(*packet_, *track.output, timeBase);
}
