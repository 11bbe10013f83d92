#include "VideoDecoder.h"

#include <android/log.h>

#include <algorithm>
#include <cstring>

namespace {

av::CodecContext NewContext(const AVCodec* codec, const std::vector<uint8_t>& parameterSets) {
    av::CodecContext context(avcodec_alloc_context3(codec));
    // Decode slices in parallel, but not pictures: that would delay each of them.
    context->thread_type = FF_THREAD_SLICE;
    context->thread_count = 0;
    // Errors are logged below; libavcodec must not print them, too.
    context->log_level_offset = AV_LOG_TRACE;
    if (!parameterSets.empty()) {
        const size_t size = parameterSets.size();
        context->extradata = static_cast<uint8_t*>(av_mallocz(size + AV_INPUT_BUFFER_PADDING_SIZE));
        context->extradata_size = static_cast<int>(size);
        std::memcpy(context->extradata, parameterSets.data(), size);
    }
    return context;
}

void LogSkipped(const char* what, int error) {
    char text[AV_ERROR_MAX_STRING_SIZE] = "";
    av_strerror(error, text, sizeof(text));
    __android_log_print(ANDROID_LOG_WARN, kMediaLogTag, "skipped %s: %s", what, text);
}

}  // namespace

AVCodecID VideoDecoder::CodecOf(const std::string& mimeType) {
    if (mimeType == "video/avc") {
        return AV_CODEC_ID_H264;
    }
    return mimeType == "video/mjpeg" ? AV_CODEC_ID_MJPEG : AV_CODEC_ID_NONE;
}

VideoDecoder::VideoDecoder(AVCodecID codec, const std::vector<uint8_t>& parameterSets,
                           bool padsPictures)
    : padsPictures_(padsPictures), packet_(av_packet_alloc()) {
    const AVCodec* implementation = avcodec_find_decoder(codec);
    if (implementation == nullptr) {
        return;
    }
    av::CodecContext context = NewContext(implementation, parameterSets);
    if (avcodec_open2(context.get(), implementation, nullptr) == 0) {
        context_ = std::move(context);
    }
}

void VideoDecoder::Decode(const InputUnit& unit, int reorderDepth, const Sink& sink) {
    context_->has_b_frames = std::max(context_->has_b_frames, reorderDepth);
    context_->reordered_opaque = unit.number;  // Returned with the unit's picture.
    packet_->buf = av_buffer_ref(unit.storage->get());
    packet_->data = const_cast<uint8_t*>(unit.data);
    packet_->size = static_cast<int>(unit.size);
    packet_->pts = unit.timeUs;
    const int result = avcodec_send_packet(context_.get(), packet_.get());
    av_packet_unref(packet_.get());
    // For libavcodec, parameter sets without a picture are an error.
    if (result < 0 && (unit.flags & AMEDIACODEC_BUFFER_FLAG_CODEC_CONFIG) == 0) {
        LogSkipped("a unit without a picture", result);
    }
    Receive(sink);
}

void VideoDecoder::Drain(const Sink& sink) {
    avcodec_send_packet(context_.get(), nullptr);
    Receive(sink);
}

void VideoDecoder::Flush() {
    avcodec_flush_buffers(context_.get());
}

void VideoDecoder::Receive(const Sink& sink) {
    for (;;) {
        Picture picture;
        picture.frame.reset(av_frame_alloc());
        const int result = avcodec_receive_frame(context_.get(), picture.frame.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) {
            return;
        }
        if (result < 0) {
            LogSkipped("a broken picture", result);
            continue;
        }
        picture.format = FormatOf(*picture.frame, padsPictures_);
        picture.timeUs = picture.frame->pts;
        picture.unit = picture.frame->reordered_opaque;
        if (!CanConvert(picture.format)) {
            __android_log_print(ANDROID_LOG_WARN, kMediaLogTag,
                                "skipped a picture of unsupported layout %s",
                                av_get_pix_fmt_name(picture.format.layout));
        } else if (!sink(std::move(picture))) {
            return;
        }
    }
}
