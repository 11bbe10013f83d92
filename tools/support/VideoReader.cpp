#include "support/VideoReader.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "support/ToolError.h"

namespace {

/// Time stamps of some containers are rounded to milliseconds.
constexpr double kTimeTolerance = 0.001;

}  // namespace

VideoReader::VideoReader(std::string path, double startSeconds)
    : path_(std::move(path)), startSeconds_(startSeconds) {
    OpenInput();
    OpenDecoder();
    if (startSeconds_ > 0.0) {
        Seek();
    }
}

void VideoReader::OpenInput() {
    AVDictionary* options = nullptr;
    // Where a numbered sequence may begin.
    av_dict_set(&options, "start_number_range", "100000", 0);
    AVFormatContext* input = nullptr;
    int result = avformat_open_input(&input, path_.c_str(), nullptr, &options);
    av_dict_free(&options);
    input_.reset(input);
    if (result >= 0) {
        result = avformat_find_stream_info(input, nullptr);
    }
    if (result < 0) {
        throw ToolError(path_ + ": " + LibavMessage(result));
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

/// The usual decoders of VP8 and VP9 leave the alpha out.
const AVCodec* VideoReader::FindDecoder() const {
    const AVCodecID id = stream_->codecpar->codec_id;
    const AVCodec* decoder = nullptr;
    if (av_dict_get(stream_->metadata, "alpha_mode", nullptr, 0) != nullptr) {
        decoder = avcodec_find_decoder_by_name(id == AV_CODEC_ID_VP8 ? "libvpx" : "libvpx-vp9");
    }
    return decoder != nullptr && decoder->id == id ? decoder : avcodec_find_decoder(id);
}

void VideoReader::OpenDecoder() {
    const AVCodec* codec = FindDecoder();
    if (codec == nullptr) {
        throw ToolError(path_ + ": no decoder for its video");
    }
    decoder_.reset(avcodec_alloc_context3(codec));
    decoder_->thread_count = 0;
    // Flawed pictures are shown, and counted.
    decoder_->flags |= AV_CODEC_FLAG_OUTPUT_CORRUPT;
    int result = avcodec_parameters_to_context(decoder_.get(), stream_->codecpar);
    if (result >= 0) {
        decoder_->pkt_timebase = stream_->time_base;
        result = avcodec_open2(decoder_.get(), codec, nullptr);
    }
    if (result < 0) {
        throw ToolError(path_ + ": " + LibavMessage(result));
    }
}

/// Goes to the last key frame before the start. Where that fails, the file is read from its
/// beginning, to the same effect.
void VideoReader::Seek() {
    const double ticks = startSeconds_ / av_q2d(stream_->time_base);
    constexpr double kFarthest = 1e15;
    av_seek_frame(input_.get(), stream_->index,
                  FirstTick() + static_cast<int64_t>(std::min(ticks, kFarthest)),
                  AVSEEK_FLAG_BACKWARD);
}

int64_t VideoReader::FirstTick() const {
    return stream_->start_time == AV_NOPTS_VALUE ? 0 : stream_->start_time;
}

AVRational VideoReader::FrameRate() const {
    constexpr AVRational kDefault = {25, 1};
    const AVRational rate = av_guess_frame_rate(input_.get(), stream_, nullptr);
    return rate.num > 0 && rate.den > 0 ? rate : kDefault;
}

int64_t VideoReader::ExpectedFrames() const {
    const double rate = av_q2d(FrameRate());
    double frames = static_cast<double>(stream_->nb_frames);
    if (stream_->nb_frames <= 0 && stream_->duration != AV_NOPTS_VALUE) {
        frames = static_cast<double>(stream_->duration) * av_q2d(stream_->time_base) * rate;
    } else if (stream_->nb_frames <= 0 && input_->duration != AV_NOPTS_VALUE) {
        frames = static_cast<double>(input_->duration) / AV_TIME_BASE * rate;
    }
    return std::max<int64_t>(0, std::llround(frames - startSeconds_ * rate));
}

const AVFrame& VideoReader::First() {
    const AVFrame* frame = Next();
    if (frame == nullptr) {
        throw ToolError(path_ + (startSeconds_ > 0.0 ? ": no picture from the start time on"
                                                     : ": no picture in it can be decoded"));
    }
    return *frame;
}

const AVFrame* VideoReader::Next() {
    while (Decode()) {
        if (IsBeforeStart()) {
            lost_ = 0;
            continue;
        }
        const bool corrupt = frame_->reordered_opaque != 0 || frame_->decode_error_flags != 0 ||
                             (frame_->flags & AV_FRAME_FLAG_CORRUPT) != 0;
        damaged_ += corrupt ? 1 : 0;
        return frame_.get();
    }
    return nullptr;
}

bool VideoReader::IsBeforeStart() const {
    if (startSeconds_ <= 0.0 || frame_->best_effort_timestamp == AV_NOPTS_VALUE) {
        return false;
    }
    const int64_t ticks = frame_->best_effort_timestamp - FirstTick();
    return static_cast<double>(ticks) * av_q2d(stream_->time_base) < startSeconds_ - kTimeTolerance;
}

/// Decodes into frame_; false at the end.
bool VideoReader::Decode() {
    for (;;) {
        const int result = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (result == 0 || result == AVERROR_EOF) {
            return result == 0;
        }
        if (result == AVERROR(EAGAIN)) {
            Feed();
        } else {
            ++lost_;
        }
    }
}

/// Hands the decoder the next packet of the video.
void VideoReader::Feed() {
    int result = 0;
    do {
        av_packet_unref(packet_.get());
        result = av_read_frame(input_.get(), packet_.get());
    } while (result >= 0 && packet_->stream_index != stream_->index);
    if (result < 0) {
        Drain(result);
        return;
    }
    Note(*packet_);
    // Travels with the packet and comes out with its frame.
    decoder_->reordered_opaque = lastIsCorrupt_ ? 1 : 0;
    if (avcodec_send_packet(decoder_.get(), packet_.get()) < 0) {
        ++lost_;
    }
}

void VideoReader::Note(const AVPacket& packet) {
    ++packets_;
    lastIsCorrupt_ = (packet.flags & AV_PKT_FLAG_CORRUPT) != 0;
    const int64_t time = packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
    if (time != AV_NOPTS_VALUE) {
        readTicks_ = std::max(readTicks_, time + packet.duration - FirstTick());
    }
}

/// How many frames fit between the last packet and the end that the file promises.
int64_t VideoReader::MissingTime() const {
    if (stream_->duration == AV_NOPTS_VALUE ||
        input_->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE) {
        return 0;
    }
    const auto ticks = static_cast<double>(stream_->duration - readTicks_);
    const double frames = ticks * av_q2d(stream_->time_base) * av_q2d(FrameRate());
    return std::max<int64_t>(0, std::llround(frames));
}

/// How many frames a file that is known to break off does not hold.
int64_t VideoReader::MissingFrames() const {
    const bool counted = startSeconds_ <= 0.0 && stream_->nb_frames > packets_;
    return counted ? stream_->nb_frames - packets_ : MissingTime();
}

/// Ends the decoding, and counts what is missing if the file breaks off.
void VideoReader::Drain(int readResult) {
    // Packets may be left out where the picture stands still, also at the end, but hardly for long.
    const bool endsEarly = static_cast<double>(MissingTime()) > av_q2d(FrameRate());
    if (readResult != AVERROR_EOF) {
        lost_ += std::max<int64_t>(1, MissingFrames());
    } else if (lastIsCorrupt_ || endsEarly) {
        lost_ += MissingFrames();
    }
    avcodec_send_packet(decoder_.get(), nullptr);
}
