#include "AudioWriter.h"

#include <algorithm>
#include <cmath>

#include "support/ToolError.h"

namespace {

/// When time 0 of the video is, in the stamps of the file.
double Origin(const VideoFile& video) {
    const AVStream& stream = video.Stream();
    return stream.start_time == AV_NOPTS_VALUE
               ? 0.0
               : static_cast<double>(stream.start_time) * av_q2d(stream.time_base);
}

}  // namespace

AudioWriter::AudioWriter(Muxer& muxer, const VideoFile& video, double begin, AudioWay way)
    : muxer_(muxer), shift_(-Origin(video) - begin), trims_(video.StartSeconds() > 0.0) {
    if (way == AudioWay::kNone) {
        return;
    }
    input_.emplace(video);
    for (const AVStream* source : input_->Tracks()) {
        AddTrack(*source, way);
    }
    if (trims_) {
        constexpr double kEarlier = 1.0;
        input_->Seek(video, -shift_ - kEarlier);
    } else {
        BeginWithAudio();
    }
    BeginTracks();
}

void AudioWriter::AddTrack(const AVStream& source, AudioWay way) {
    const char* name = avcodec_get_name(source.codecpar->codec_id);
    Track& track = tracks_.emplace_back();
    if (way == AudioWay::kAac && !muxer_.Takes(AV_CODEC_ID_AAC)) {
        throw ToolError(muxer_.Target() + ": this kind of file does not take aac");
    }
    if (way == AudioWay::kAac) {
        track.encoder = std::make_unique<AudioEncoder>(muxer_, source);
        report_.encoded.emplace_back(name);
    } else if (muxer_.Takes(source.codecpar->codec_id)) {
        track.copied = &muxer_.AddCopied(source);
        report_.copied.emplace_back(name);
    } else {
        report_.leftOut.emplace_back(name);
    }
}

/// Players would skip what has a negative time.
void AudioWriter::BeginWithAudio() {
    for (size_t i = 0; i < tracks_.size(); ++i) {
        const AVStream& stream = *input_->Tracks()[i];
        if (tracks_[i].IsWanted() && stream.start_time != AV_NOPTS_VALUE) {
            const double begin = static_cast<double>(stream.start_time) * av_q2d(stream.time_base);
            lead_ = std::max(lead_, -shift_ - begin);
        }
    }
    shift_ += lead_;
}

void AudioWriter::BeginTracks() {
    for (size_t i = 0; i < std::min(tracks_.size(), input_->Tracks().size()); ++i) {
        if (tracks_[i].encoder != nullptr) {
            tracks_[i].encoder->Begin(*input_->Tracks()[i], shift_);
        }
    }
}

void AudioWriter::Join(const VideoFile& video, double seconds) {
    if (!input_.has_value()) {
        return;
    }
    WriteUntil(seconds);
    waiting_ = false;
    input_.emplace(video);
    shift_ = seconds - Origin(video);
    start_ = seconds;  // Nothing of it may be heard with the pictures before.
    trims_ = true;
    BeginTracks();
}

void AudioWriter::WriteUntil(double seconds) {
    while (input_.has_value() && (waiting_ || Read()) && NextSeconds() < seconds) {
        Write();
    }
}

void AudioWriter::Finish() {
    for (const Track& track : tracks_) {
        if (track.encoder != nullptr) {
            track.encoder->Finish();
        }
    }
}

/// Reads the next packet that is to be written; false if there is none, or none yet.
bool AudioWriter::Read() {
    while (!waiting_ && input_->Read()) {
        const size_t track = input_->Track();
        waiting_ = track < tracks_.size() && tracks_[track].IsWanted() &&
                   (!trims_ || NextSeconds() >= start_);
    }
    return waiting_;
}

void AudioWriter::Write() {
    Track& track = tracks_[input_->Track()];
    waiting_ = false;
    if (track.encoder != nullptr) {
        track.encoder->Write(input_->Packet());
    } else {
        Copy(track);
    }
}

void AudioWriter::Copy(Track& track) {
    AVPacket& packet = input_->Packet();
    const AVRational timeBase = input_->Tracks()[input_->Track()]->time_base;
    const AVRational unit = track.copied->time_base;
    const int64_t time = packet.pts + std::llround(shift_ / av_q2d(timeBase));
    track.next = std::max(track.next, av_rescale_q(time, timeBase, unit));
    packet.pts = track.next++;
    packet.dts = packet.pts;
    packet.duration = av_rescale_q(packet.duration, timeBase, unit);
    muxer_.Write(packet, *track.copied, unit);
}
