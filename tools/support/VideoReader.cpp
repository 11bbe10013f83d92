#include "support/VideoReader.h"

#include <algorithm>
#include <utility>

#include "support/ToolError.h"

namespace {

/// The decoder guesses the stamp if the file does not say.
int64_t StampOf(const AVFrame& frame) {
    return frame.pts != AV_NOPTS_VALUE ? frame.pts : frame.best_effort_timestamp;
}

}  // namespace

VideoReader::VideoReader(VideoFile file) : file_(std::move(file)), times_(file_.Times()) {
    OpenDecoder();
}

/// The default decoders of VP8 and VP9 drop the alpha.
const AVCodec* VideoReader::FindDecoder() const {
    const AVCodecID id = file_.Codec().codec_id;
    const AVCodec* decoder = nullptr;
    if (av_dict_get(file_.Stream().metadata, "alpha_mode", nullptr, 0) != nullptr) {
        decoder = avcodec_find_decoder_by_name(id == AV_CODEC_ID_VP8 ? "libvpx" : "libvpx-vp9");
    }
    return decoder != nullptr && decoder->id == id ? decoder : avcodec_find_decoder(id);
}

void VideoReader::OpenDecoder() {
    const AVCodec* codec = FindDecoder();
    if (codec == nullptr) {
        throw ToolError(file_.Path() + ": no decoder for its video");
    }
    decoder_.reset(avcodec_alloc_context3(codec));
    decoder_->thread_count = 0;
    owed_.emplace(codec->id);
    // Flawed pictures are shown, and counted.
    decoder_->flags |= AV_CODEC_FLAG_OUTPUT_CORRUPT;
    int result = avcodec_parameters_to_context(decoder_.get(), &file_.Codec());
    if (result >= 0) {
        decoder_->pkt_timebase = file_.Stream().time_base;
        result = avcodec_open2(decoder_.get(), codec, nullptr);
    }
    if (result < 0) {
        throw ToolError(file_.Path() + ": " + LibavMessage(result));
    }
}

const AVFrame& VideoReader::First() {
    const AVFrame* frame = Next();
    if (frame == nullptr) {
        throw ToolError(file_.NoPicture());
    }
    return *frame;
}

const AVFrame* VideoReader::Next() {
    while (Decode()) {
        frame_->pts = times_.Receive(StampOf(*frame_));
        if (!started_ && file_.IsBeforeStart(times_.Clock().Seconds(frame_->pts))) {
            failed_ = 0;
            continue;
        }
        started_ = true;
        const bool corrupt = frame_->reordered_opaque != 0 || frame_->decode_error_flags != 0 ||
                             (frame_->flags & AV_FRAME_FLAG_CORRUPT) != 0;
        damaged_ += corrupt ? 1 : 0;
        return frame_.get();
    }
    return nullptr;
}

int64_t VideoReader::Lost() const {
    // A frame that is owed may be one that the decoder gave an error for.
    const int64_t owed = drained_ ? owed_->CountFrom(file_.StartTime()) : 0;
    return std::max(failed_, owed) + file_.Missing();
}

/// Decodes into frame_; false at the end.
bool VideoReader::Decode() {
    for (;;) {
        const int result = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (result == 0) {
            owed_->Receive(*frame_);
            return true;
        }
        if (result == AVERROR_EOF) {
            drained_ = true;
            return false;
        }
        if (result == AVERROR(EAGAIN)) {
            Feed();
        } else {
            ++failed_;
        }
    }
}

/// Hands the decoder the next packet of the video, or the end.
void VideoReader::Feed() {
    const AVPacket* packet = file_.Next();
    if (packet == nullptr) {
        avcodec_send_packet(decoder_.get(), nullptr);
        return;
    }
    owed_->Send(*packet);
    times_.Send(*packet);
    // libavcodec passes it from the packet to its frame.
    decoder_->reordered_opaque = (packet->flags & AV_PKT_FLAG_CORRUPT) != 0 ? 1 : 0;
    if (avcodec_send_packet(decoder_.get(), packet) < 0) {
        ++failed_;
    }
}
