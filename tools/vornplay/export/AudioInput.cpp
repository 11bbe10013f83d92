#include "AudioInput.h"

#include <algorithm>
#include <cmath>
#include <utility>

AudioInput::AudioInput(const VideoFile& video) : queue_(video.AudioPackets()) {
    const AVFormatContext* streams = &video.Context();
    if (queue_ == nullptr) {
        Open(video);
        streams = input_.get();
    }
    for (unsigned i = 0; streams != nullptr && i < streams->nb_streams; ++i) {
        AVStream* stream = streams->streams[i];
        if (stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO) {
            tracks_.push_back(stream);
        } else if (queue_ == nullptr) {
            stream->discard = AVDISCARD_ALL;
        }
    }
    times_.resize(tracks_.size());
}

void AudioInput::Open(const VideoFile& video) {
    AVFormatContext* input = nullptr;
    if (avformat_open_input(&input, video.Path().c_str(), nullptr, nullptr) < 0) {
        return;
    }
    input_.reset(input);
    if (avformat_find_stream_info(input, nullptr) < 0) {
        input_.reset();
    }
}

void AudioInput::Seek(const VideoFile& video, double seconds) {
    if (input_ != nullptr) {
        const double ticks = seconds / av_q2d(video.Stream().time_base);
        av_seek_frame(input_.get(), video.Stream().index, std::llround(ticks),
                      AVSEEK_FLAG_BACKWARD);
    }
}

bool AudioInput::Read() {
    while (ReadAny()) {
        if (FindTrack()) {
            Repair(times_[track_]);
            return true;
        }
    }
    return false;
}

bool AudioInput::ReadAny() {
    if (queue_ != nullptr) {
        LibavPtr<AVPacket> packet = queue_->Pop();
        if (packet == nullptr) {
            return false;
        }
        packet_ = std::move(packet);
        return true;
    }
    av_packet_unref(packet_.get());
    if (input_ != nullptr && av_read_frame(input_.get(), packet_.get()) < 0) {
        return false;
    }
    return input_ != nullptr;
}

bool AudioInput::FindTrack() {
    const auto found = std::find_if(tracks_.begin(), tracks_.end(), [this](const AVStream* stream) {
        return stream->index == packet_->stream_index;
    });
    track_ = static_cast<size_t>(found - tracks_.begin());
    return found != tracks_.end();
}

/// Packets without a stamp, or with one that steps back, follow the packet before.
void AudioInput::Repair(Times& times) {
    AVPacket& packet = *packet_;
    const int64_t stamp = packet.dts != AV_NOPTS_VALUE ? packet.dts : packet.pts;
    int64_t time = stamp != AV_NOPTS_VALUE ? stamp + times.offset : times.end;
    const int64_t rounding = packet.duration / 2;
    if (times.started && time < times.end - rounding) {
        times.offset += times.end - time;
        time = times.end;
    }
    if (times.started) {
        time = std::max(time, times.last + 1);
    }
    packet.pts = time;  // Audio is heard in the order of decoding.
    packet.dts = time;
    times.started = true;
    times.last = time;
    times.end = time + packet.duration;
}

double AudioInput::Seconds() const {
    return static_cast<double>(packet_->pts) * av_q2d(tracks_[track_]->time_base);
}
