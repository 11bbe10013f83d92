#include "window/sound/AudioReader.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <utility>

extern "C" {
#include <libswresample/swresample.h>
}

namespace {

/// Stamps are rounded; a smaller difference is none.
constexpr double kTolerance = 0.01;
/// Stamps that step back further have begun again.
constexpr double kLongestMistake = 0.5;

/// A pipe cannot be read twice.
bool IsPipe(const std::string& path) {
    std::error_code error;
    return path == "-" || path.rfind("pipe:", 0) == 0 || std::filesystem::is_fifo(path, error);
}

double Seconds(size_t samples) {
    return static_cast<double>(samples) / Speaker::kRate;
}

size_t Samples(double seconds) {
    return static_cast<size_t>(std::llround(std::max(0.0, seconds) * Speaker::kRate));
}

/// Whether the file's header describes this stream, as sound.
bool HasSound(const AVFormatContext& input, int track) {
    if (static_cast<unsigned>(track) >= input.nb_streams) {
        return false;
    }
    const AVCodecParameters& codec = *input.streams[track]->codecpar;
    return codec.codec_type == AVMEDIA_TYPE_AUDIO && codec.codec_id != AV_CODEC_ID_NONE &&
           codec.sample_rate > 0 && codec.ch_layout.nb_channels > 0;
}

/// Reads as much of the file as it takes. This also decodes video, so it is slow.
bool FindSound(AVFormatContext& input, int track) {
    return avformat_find_stream_info(&input, nullptr) >= 0 && HasSound(input, track);
}

}  // namespace

void AudioReader::FreeConverter::operator()(SwrContext* converter) const {
    swr_free(&converter);
}

std::unique_ptr<AudioReader> AudioReader::Open(const VideoFile& file, double origin) {
    std::unique_ptr<AudioReader> reader(new AudioReader);
    reader->path_ = file.Path();
    reader->origin_ = origin;
    reader->track_ = file.BestAudio();
    if (reader->track_ < 0 || IsPipe(file.Path()) || !reader->OpenInput() ||
        !reader->OpenDecoder()) {
        return nullptr;
    }
    reader->NoteEnd(*file.Context().streams[reader->track_]);
    return reader;
}

bool AudioReader::OpenInput() {
    AVFormatContext* input = nullptr;
    const int result = avformat_open_input(&input, path_.c_str(), nullptr, nullptr);
    input_.reset(input);
    if (result < 0 || !(HasSound(*input, track_) || FindSound(*input, track_))) {
        return false;
    }
    for (unsigned i = 0; i < input->nb_streams; ++i) {
        input->streams[i]->discard = AVDISCARD_ALL;
    }
    stream_ = input->streams[track_];
    stream_->discard = AVDISCARD_DEFAULT;
    return true;
}

bool AudioReader::OpenDecoder() {
    const AVCodec* codec = avcodec_find_decoder(stream_->codecpar->codec_id);
    decoder_.reset(codec != nullptr ? avcodec_alloc_context3(codec) : nullptr);
    if (decoder_ == nullptr ||
        avcodec_parameters_to_context(decoder_.get(), stream_->codecpar) < 0) {
        return false;
    }
    decoder_->pkt_timebase = stream_->time_base;
    return avcodec_open2(decoder_.get(), codec, nullptr) >= 0;
}

/// \param known the stream of a file that was read for that
void AudioReader::NoteEnd(const AVStream& known) {
    if (known.duration != AV_NOPTS_VALUE) {
        const int64_t first = known.start_time == AV_NOPTS_VALUE ? 0 : known.start_time;
        endSeconds_ = SecondsOf(first + known.duration);
    }
}

double AudioReader::SecondsOf(int64_t stamp) const {
    return static_cast<double>(stamp) * av_q2d(stream_->time_base) - origin_;
}

void AudioReader::Seek(double seconds, bool byReading) {
    // Some codecs need a few packets before the first good sample.
    constexpr double kRunUp = 0.1;
    const double from = std::max(0.0, seconds - kRunUp) + origin_;
    const auto stamp = static_cast<int64_t>(from / av_q2d(stream_->time_base));
    if (byReading || av_seek_frame(input_.get(), stream_->index, stamp, AVSEEK_FLAG_BACKWARD) < 0) {
        OpenInput();  // Begins again; what comes before the time is cut off.
    }
    avcodec_flush_buffers(decoder_.get());
    converter_.reset();
    pending_.clear();
    silence_ = 0;
    offset_ = 0.0;
    decoded_.reset();
    begun_ = false;
    next_ = seconds;
}

std::vector<Sample> AudioReader::Next() {
    std::vector<Sample> samples = Silence();
    while (samples.empty() && (!pending_.empty() || Decode())) {
        if (pending_.empty()) {
            pending_ = Convert();
            Align();
        }
        samples = silence_ > 0 ? Silence() : std::exchange(pending_, {});
    }
    begun_ = begun_ || !samples.empty();
    next_ += Seconds(samples.size());
    return samples;
}

/// A part of what fills a gap.
std::vector<Sample> AudioReader::Silence() {
    const size_t count = std::min<size_t>(silence_, Speaker::kRate);
    silence_ -= count;
    return std::vector<Sample>(count);
}

/// Decodes into frame_; false at the end.
bool AudioReader::Decode() {
    for (;;) {
        const int result = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (result == 0) {
            return true;
        }
        if (result != AVERROR(EAGAIN) || !Feed()) {
            return false;
        }
    }
}

/// Hands the decoder a packet, or the end. \return false after the end
bool AudioReader::Feed() {
    int result = AVERROR_EOF;
    do {
        av_packet_unref(packet_.get());
        if (input_ == nullptr) {
            break;  // It could not be opened again.
        }
        result = av_read_frame(input_.get(), packet_.get());
    } while (result >= 0 && packet_->stream_index != stream_->index);
    // Packets that do not decode leave a gap.
    const int sent = avcodec_send_packet(decoder_.get(), result >= 0 ? packet_.get() : nullptr);
    return result >= 0 || sent >= 0;
}

/// Makes the converter for frames like frame_, unless it is.
bool AudioReader::Configure() {
    const bool same = converter_ != nullptr && configured_->format == frame_->format &&
                      configured_->sample_rate == frame_->sample_rate &&
                      av_channel_layout_compare(&configured_->ch_layout, &frame_->ch_layout) == 0;
    if (same) {
        return true;
    }
    AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    SwrContext* converter = nullptr;
    const int result = swr_alloc_set_opts2(
        &converter, &stereo, AV_SAMPLE_FMT_FLT, Speaker::kRate, &frame_->ch_layout,
        static_cast<AVSampleFormat>(frame_->format), frame_->sample_rate, 0, nullptr);
    converter_.reset(converter);
    av_frame_unref(configured_.get());
    return result >= 0 && swr_init(converter) >= 0 &&
           av_frame_ref(configured_.get(), frame_.get()) >= 0;
}

std::vector<Sample> AudioReader::Convert() {
    if (!Configure()) {
        converter_.reset();
        return {};
    }
    held_ = static_cast<double>(swr_get_delay(converter_.get(), Speaker::kRate)) /
            static_cast<double>(Speaker::kRate);
    const int room = swr_get_out_samples(converter_.get(), frame_->nb_samples);
    std::vector<Sample> samples(static_cast<size_t>(std::max(0, room)));
    auto* out = reinterpret_cast<uint8_t*>(samples.data());
    const int count =
        swr_convert(converter_.get(), &out, room,
                    const_cast<const uint8_t**>(frame_->extended_data), frame_->nb_samples);
    samples.resize(static_cast<size_t>(std::max(0, count)));
    return samples;
}

/// Puts samples where their stamp says: cuts off what was before the next one, and fills gaps.
void AudioReader::Align() {
    const int64_t stamp = frame_->best_effort_timestamp;
    if (stamp == AV_NOPTS_VALUE) {
        return;
    }
    const double time = SecondsOf(stamp) - held_;
    if (decoded_.has_value() && time + offset_ < *decoded_ - kLongestMistake) {
        offset_ = *decoded_ - time;
    }
    decoded_ = time + offset_ + Seconds(pending_.size());
    const double ahead = time + offset_ - next_;
    const double tolerance = begun_ ? kTolerance : 0.0;
    if (ahead > tolerance) {
        silence_ = Samples(ahead);
    } else if (ahead < -tolerance) {
        const size_t cut = std::min(pending_.size(), Samples(-ahead));
        pending_.erase(pending_.begin(), pending_.begin() + static_cast<ptrdiff_t>(cut));
    }
}
