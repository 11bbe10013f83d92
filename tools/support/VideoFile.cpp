#include "support/VideoFile.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "support/StampScan.h"
#include "support/ToolError.h"

namespace {

/// Time stamps of some containers are rounded to milliseconds.
constexpr double kTimeTolerance = 0.001;

/// Whether a file may be in parts, each with stamps of its own.
bool MayRestart(const AVInputFormat& format) {
    return (format.flags & AVFMT_TS_DISCONT) != 0;
}

}  // namespace

VideoFile::VideoFile(std::string path, double startSeconds, Seeking seeking)
    : path_(std::move(path)), startSeconds_(startSeconds) {
    Open();
    if (startSeconds_ > 0.0) {
        Seek(seeking);
    }
}

void VideoFile::Open() {
    AVDictionary* options = nullptr;
    // The highest number that a numbered sequence may begin with.
    av_dict_set(&options, "start_number_range", "100000", 0);
    AVFormatContext* input = nullptr;
    const char* url = path_ == "-" ? "pipe:0" : path_.c_str();
    int result = avformat_open_input(&input, url, nullptr, &options);
    av_dict_free(&options);
    input_.reset(input);
    if (result >= 0) {
        result = avformat_find_stream_info(input, nullptr);
    }
    if (result < 0) {
        const bool remote = path_.find("://") != std::string::npos;
        throw ToolError(path_ + ": " + LibavMessage(result) + (remote ? "; -v shows more" : ""));
    }
    const int index = av_find_best_stream(input, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (index < 0) {
        throw ToolError(path_ + ": no video in it");
    }
    for (unsigned i = 0; i < input->nb_streams; ++i) {
        input->streams[i]->discard = AVDISCARD_ALL;
    }
    stream_ = input->streams[index];
    stream_->discard = AVDISCARD_DEFAULT;
}

bool VideoFile::IsRegular() const {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path_, ignored);
}

void VideoFile::KeepAudio() {
    if (IsRegular()) {
        return;
    }
    audio_ = std::make_shared<PacketQueue>();
    for (unsigned i = 0; i < input_->nb_streams; ++i) {
        if (input_->streams[i]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO) {
            input_->streams[i]->discard = AVDISCARD_DEFAULT;
        }
    }
}

void VideoFile::KeepIfAudio(const AVPacket& packet) {
    const AVStream& stream = *input_->streams[packet.stream_index];
    if (audio_ != nullptr && stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO) {
        audio_->Push(packet);
    }
}

int VideoFile::BestAudio() const {
    return av_find_best_stream(input_.get(), AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
}

std::vector<const AVCodecParameters*> VideoFile::Audio() const {
    std::vector<const AVCodecParameters*> tracks;
    for (unsigned i = 0; i < input_->nb_streams; ++i) {
        const AVCodecParameters* codec = input_->streams[i]->codecpar;
        if (codec->codec_type == AVMEDIA_TYPE_AUDIO) {
            tracks.push_back(codec);
        }
    }
    return tracks;
}

std::vector<std::string> VideoFile::AudioCodecs() const {
    std::vector<std::string> codecs;
    for (const AVCodecParameters* codec : Audio()) {
        codecs.emplace_back(avcodec_get_name(codec->codec_id));
    }
    return codecs;
}

/// Goes to the last key frame before the start. If that fails, the file is read from its beginning;
/// either way the caller drops the frames before the start.
void VideoFile::Seek(Seeking seeking) {
    if (seeking == Seeking::kAsFits && MayRestart(*input_->iformat)) {
        const std::optional<StampScan> scan = ScanStamps(*this);
        seeking = scan.has_value() && scan->restart ? Seeking::kByReading : seeking;
    }
    if (seeking == Seeking::kByReading || IsStream()) {
        return;
    }
    const double ticks = startSeconds_ / av_q2d(stream_->time_base);
    constexpr double kFarthest = 1e15;
    av_seek_frame(input_.get(), stream_->index,
                  FirstTick() + static_cast<int64_t>(std::min(ticks, kFarthest)),
                  AVSEEK_FLAG_BACKWARD);
}

int64_t VideoFile::FirstTick() const {
    return stream_->start_time == AV_NOPTS_VALUE ? 0 : stream_->start_time;
}

double VideoFile::SecondsOf(int64_t time) const {
    return static_cast<double>(time - FirstTick()) * av_q2d(stream_->time_base);
}

int64_t VideoFile::StartTime() const {
    return FirstTick() + static_cast<int64_t>(startSeconds_ / av_q2d(stream_->time_base));
}

AVRational VideoFile::FrameRate() const {
    constexpr AVRational kDefault = {25, 1};
    const AVRational rate = av_guess_frame_rate(input_.get(), stream_, nullptr);
    return rate.num > 0 && rate.den > 0 ? rate : kDefault;
}

const int32_t* VideoFile::DisplayMatrix() const {
    constexpr size_t kBytes = 9 * sizeof(int32_t);
    size_t bytes = 0;
    const uint8_t* data = av_stream_get_side_data(stream_, AV_PKT_DATA_DISPLAYMATRIX, &bytes);
    return bytes >= kBytes ? reinterpret_cast<const int32_t*>(data) : nullptr;
}

PictureShape VideoFile::Shape(bool turn) const {
    PictureShape shape;
    const AVRational aspect = av_guess_sample_aspect_ratio(input_.get(), stream_, nullptr);
    if (aspect.num > 0 && aspect.den > 0) {
        shape.pixelAspect = aspect;
    }
    if (turn && DisplayMatrix() != nullptr) {
        shape.TurnBy(DisplayMatrix());
    }
    return shape;
}

std::string VideoFile::NoPicture() const {
    if (IsStream() && IsIndexed()) {
        return path_ +
               (path_ == "-"
                    ? ": its index is at the end, which a pipe reaches too late; name the file"
                    : ": its index is at the end, and the server sends only whole files; "
                      "download it first");
    }
    return path_ + (startSeconds_ > 0.0 ? ": no picture from the start time on"
                                        : ": no picture in it can be decoded");
}

double VideoFile::EndSeconds() const {
    if (stream_->duration != AV_NOPTS_VALUE) {
        return static_cast<double>(stream_->duration) * av_q2d(stream_->time_base);
    }
    const bool known = input_->duration != AV_NOPTS_VALUE;
    return known ? static_cast<double>(input_->duration) / AV_TIME_BASE : 0.0;
}

int64_t VideoFile::ExpectedFrames() const {
    const double rate = av_q2d(FrameRate());
    auto frames = static_cast<double>(stream_->nb_frames);
    if (stream_->nb_frames <= 0 && stream_->duration != AV_NOPTS_VALUE) {
        frames = static_cast<double>(stream_->duration) * av_q2d(stream_->time_base) * rate;
    } else if (stream_->nb_frames <= 0 && input_->duration != AV_NOPTS_VALUE) {
        frames = static_cast<double>(input_->duration) / AV_TIME_BASE * rate;
    }
    return std::max<int64_t>(0, std::llround(frames - startSeconds_ * rate));
}

bool VideoFile::IsBeforeStart(int64_t time) const {
    return time != AV_NOPTS_VALUE && IsBeforeStart(SecondsOf(time));
}

bool VideoFile::IsBeforeStart(double seconds) const {
    return startSeconds_ > 0.0 && seconds < startSeconds_ - kTimeTolerance;
}

AVPacket* VideoFile::Next() {
    int result = 0;
    do {
        av_packet_unref(packet_.get());
        result = av_read_frame(input_.get(), packet_.get());
        if (result >= 0) {
            KeepIfAudio(*packet_);
        }
    } while (result >= 0 && packet_->stream_index != stream_->index);
    if (result < 0) {
        End(result);
        return nullptr;
    }
    Note(*packet_);
    return packet_.get();
}

void VideoFile::Note(const AVPacket& packet) {
    ++packets_;
    lastIsCorrupt_ = (packet.flags & AV_PKT_FLAG_CORRUPT) != 0;
    const int64_t time = packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
    if (time != AV_NOPTS_VALUE) {
        readTicks_ = std::max(readTicks_, time + packet.duration - FirstTick());
    }
}

/// How many frames fit between the last packet and the end that the file announces.
int64_t VideoFile::MissingTime() const {
    if (stream_->duration == AV_NOPTS_VALUE ||
        input_->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE) {
        return 0;
    }
    const auto ticks = static_cast<double>(stream_->duration - readTicks_);
    const double frames = ticks * av_q2d(stream_->time_base) * av_q2d(FrameRate());
    return std::max<int64_t>(0, std::llround(frames));
}

/// How many frames are missing from a file that is known to break off.
int64_t VideoFile::MissingFrames() const {
    const bool counted = startSeconds_ <= 0.0 && stream_->nb_frames > packets_;
    return counted ? stream_->nb_frames - packets_ : MissingTime();
}

/// Whether it can only be read from its beginning on, as pipes and some servers give it.
bool VideoFile::IsStream() const {
    return input_->pb != nullptr && input_->pb->seekable == 0;
}

bool VideoFile::IsIndexed() const {
    return std::string_view(input_->iformat->name).find("mp4") != std::string::npos;
}

/// Samples that the index of an mp4 has and the file has not.
int64_t VideoFile::UnreadSamples() const {
    const int samples = avformat_index_get_entries_count(stream_);
    return IsIndexed() && startSeconds_ <= 0.0 ? std::max<int64_t>(0, samples - packets_) : 0;
}

/// Counts what is missing if the file breaks off.
void VideoFile::End(int readResult) {
    // A file may leave out packets while the picture stands still, but not for long.
    const bool endsEarly = static_cast<double>(MissingTime()) > av_q2d(FrameRate());
    if (readResult != AVERROR_EOF) {
        missing_ = std::max<int64_t>(1, MissingFrames());
    } else {
        missing_ = lastIsCorrupt_ || endsEarly ? MissingFrames() : UnreadSamples();
    }
}
