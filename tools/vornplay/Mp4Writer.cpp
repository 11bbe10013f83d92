#include "Mp4Writer.h"

#include <array>

#include "support/ToolError.h"

extern "C" {
#include <libavutil/opt.h>
}

namespace {

constexpr int kRgbBytes = 3;

/// Tags the colours with one of the two usual sets, all of one standard.
void TagColours(AVCodecContext& encoder) {
    const bool hd = UsualColorSpace(encoder.width, encoder.height) == AVCOL_SPC_BT709;
    encoder.color_range = AVCOL_RANGE_MPEG;
    encoder.colorspace = hd ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
    encoder.color_primaries = hd ? AVCOL_PRI_BT709 : AVCOL_PRI_SMPTE170M;
    encoder.color_trc = hd ? AVCOL_TRC_BT709 : AVCOL_TRC_SMPTE170M;
}

LibavPtr<SwsContext> MakeScaler(const AVCodecContext& encoder) {
    constexpr int kFlags = SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP;
    constexpr int kUnchanged = 1 << 16;
    LibavPtr<SwsContext> scaler(sws_getContext(encoder.width, encoder.height, AV_PIX_FMT_RGB24,
                                               encoder.width, encoder.height, encoder.pix_fmt,
                                               kFlags, nullptr, nullptr, nullptr));
    if (scaler != nullptr) {
        sws_setColorspaceDetails(scaler.get(), sws_getCoefficients(SWS_CS_DEFAULT), 1,
                                 sws_getCoefficients(encoder.colorspace), 0, 0, kUnchanged,
                                 kUnchanged);
    }
    return scaler;
}

}  // namespace

void Mp4Writer::CloseOutput::operator()(AVFormatContext* output) const {
    avio_closep(&output->pb);
    avformat_free_context(output);
}

Mp4Writer::Mp4Writer(const std::string& path, Size size, AVRational frameRate,
                     const Backdrop& backdrop)
    : path_(path),
      file_(path),
      backdrop_(backdrop),
      rgb_(static_cast<size_t>(size.width) * static_cast<size_t>(size.height) * kRgbBytes) {
    if (size.width % 2 != 0 || size.height % 2 != 0) {
        throw ToolError(path + ": an mp4 needs an even width and height, not " +
                        std::to_string(size.width) + "x" + std::to_string(size.height) +
                        "; give an even --size");
    }
    AVFormatContext* output = nullptr;
    Check(avformat_alloc_output_context2(&output, nullptr, "mp4", file_.Path().c_str()));
    output_.reset(output);
    OpenEncoder(size, frameRate);
    OpenFile();
    PrepareFrame();
}

void Mp4Writer::Check(int result) const {
    if (result < 0) {
        throw ToolError(path_ + ": cannot be written: " + LibavMessage(result));
    }
}

void Mp4Writer::OpenEncoder(Size size, AVRational frameRate) {
    const AVCodec* codec = avcodec_find_encoder(AV_CODEC_ID_H264);
    if (codec == nullptr) {
        throw ToolError(path_ + ": libavcodec has no H.264 encoder");
    }
    encoder_.reset(avcodec_alloc_context3(codec));
    encoder_->width = size.width;
    encoder_->height = size.height;
    encoder_->pix_fmt = AV_PIX_FMT_YUV420P;
    encoder_->time_base = av_inv_q(frameRate);
    encoder_->framerate = frameRate;
    encoder_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    TagColours(*encoder_);
    // Options of the usual encoder; others do without.
    av_opt_set(encoder_->priv_data, "crf", "18", 0);
    av_opt_set(encoder_->priv_data, "preset", "fast", 0);
    Check(avcodec_open2(encoder_.get(), codec, nullptr));
}

void Mp4Writer::OpenFile() {
    AVStream* stream = avformat_new_stream(output_.get(), nullptr);
    Check(stream != nullptr ? 0 : AVERROR(ENOMEM));
    Check(avcodec_parameters_from_context(stream->codecpar, encoder_.get()));
    stream->time_base = encoder_->time_base;
    stream->avg_frame_rate = encoder_->framerate;
    Check(avio_open(&output_->pb, file_.Path().c_str(), AVIO_FLAG_WRITE));
    // The index goes to the front, so that playing can begin before the whole file is there.
    AVDictionary* options = nullptr;
    av_dict_set(&options, "movflags", "+faststart", 0);
    const int result = avformat_write_header(output_.get(), &options);
    av_dict_free(&options);
    Check(result);
}

void Mp4Writer::PrepareFrame() {
    scaler_ = MakeScaler(*encoder_);
    Check(scaler_ != nullptr ? 0 : AVERROR(EINVAL));
    frame_->format = encoder_->pix_fmt;
    frame_->width = encoder_->width;
    frame_->height = encoder_->height;
    frame_->pts = -1;
    Check(av_frame_get_buffer(frame_.get(), 0));
}

void Mp4Writer::Write(const Image& frame) {
    backdrop_.Flatten(frame, rgb_.data());
    Check(av_frame_make_writable(frame_.get()));
    const std::array<const uint8_t*, 4> planes = {rgb_.data()};
    const std::array<int, 4> strides = {frame.size.width * kRgbBytes};
    sws_scale(scaler_.get(), planes.data(), strides.data(), 0, frame.size.height, frame_->data,
              frame_->linesize);
    ++frame_->pts;
    Encode(frame_.get());
}

/// Hands a frame to the encoder, or with null the last of what it holds, and writes what comes out.
void Mp4Writer::Encode(const AVFrame* frame) {
    Check(avcodec_send_frame(encoder_.get(), frame));
    for (;;) {
        const int result = avcodec_receive_packet(encoder_.get(), packet_.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) {
            return;
        }
        Check(result);
        packet_->duration = 1;
        av_packet_rescale_ts(packet_.get(), encoder_->time_base, output_->streams[0]->time_base);
        Check(av_interleaved_write_frame(output_.get(), packet_.get()));
    }
}

void Mp4Writer::Finish() {
    Encode(nullptr);
    Check(av_write_trailer(output_.get()));
    Check(avio_closep(&output_->pb));
    file_.Commit();
}
