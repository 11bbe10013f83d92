#include "TestStream.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <stdexcept>

namespace {

void Check(int result, const char* what) {
    if (result < 0) {
        throw std::runtime_error(std::string("encoding for the test: ") + what);
    }
}

av::CodecContext OpenEncoder(const TestStream& stream) {
    const AVCodec* codec = avcodec_find_encoder_by_name(stream.encoder.c_str());
    Check(codec != nullptr ? 0 : -1, stream.encoder.c_str());
    av::CodecContext context(avcodec_alloc_context3(codec));
    context->width = stream.width;
    context->height = stream.height;
    context->pix_fmt = stream.layout;
    context->colorspace = stream.colors;
    context->color_range = stream.range;
    context->time_base = {1, AV_TIME_BASE};
    context->framerate = {AV_TIME_BASE, static_cast<int>(kFrameTimeUs)};
    context->gop_size = stream.keyInterval;
    context->max_b_frames = stream.bFrames;
    context->thread_count = 1;
    context->strict_std_compliance = FF_COMPLIANCE_UNOFFICIAL;
    context->log_level_offset = AV_LOG_TRACE;
    if (stream.parameterSetsApart) {
        context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    // The best quality, so that decoded colors are those of the input.
    context->flags |= AV_CODEC_FLAG_QSCALE;
    context->global_quality = FF_QP2LAMBDA;
    av_opt_set(context->priv_data, "qp", "2", 0);
    av_opt_set(context->priv_data, "preset", "veryfast", 0);
    if (!stream.profile.empty()) {
        av_opt_set(context->priv_data, "profile", stream.profile.c_str(), 0);
    }
    const std::string parameters = "b-adapt=0:scenecut=0:slices=1";
    av_opt_set(context->priv_data, "x264-params", parameters.c_str(), 0);
    Check(avcodec_open2(context.get(), codec, nullptr), "open");
    return context;
}

uint8_t Component(const Yuv& color, int plane) {
    return plane == 0 ? color.y : plane == 1 ? color.u : color.v;
}

void Fill(AVFrame* frame, const TestStream::Quarters& quarters) {
    const AVPixFmtDescriptor* layout =
        av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame->format));
    for (int plane = 0; plane < layout->nb_components; ++plane) {
        const int width = plane == 0 ? frame->width : -(-frame->width >> layout->log2_chroma_w);
        const int height = plane == 0 ? frame->height : -(-frame->height >> layout->log2_chroma_h);
        for (int row = 0; row < height; ++row) {
            uint8_t* to = frame->data[plane] + static_cast<ptrdiff_t>(row) * frame->linesize[plane];
            const size_t left = row < height / 2 ? 0 : 2;
            std::fill(to, to + width / 2, Component(quarters[left], plane));
            std::fill(to + width / 2, to + width, Component(quarters[left + 1], plane));
        }
    }
}

av::Frame NewFrame(const AVCodecContext& context) {
    av::Frame frame(av_frame_alloc());
    frame->width = context.width;
    frame->height = context.height;
    frame->format = context.pix_fmt;
    Check(av_frame_get_buffer(frame.get(), 0), "frame");
    return frame;
}

void Receive(AVCodecContext* context, std::vector<TestUnit>* units) {
    const av::Packet packet(av_packet_alloc());
    while (avcodec_receive_packet(context, packet.get()) == 0) {
        units->push_back({{packet->data, packet->data + packet->size},
                          packet->pts,
                          packet->dts,
                          (packet->flags & AV_PKT_FLAG_KEY) != 0});
        av_packet_unref(packet.get());
    }
}

}  // namespace

std::vector<TestUnit> Encode(const TestStream& stream, int count, av::CodecContext* encoder) {
    av::CodecContext context = OpenEncoder(stream);
    std::vector<TestUnit> units;
    for (int index = 0; index < count; ++index) {
        const av::Frame frame = NewFrame(*context);
        Fill(frame.get(), stream.picture(index));
        frame->pts = index * kFrameTimeUs;
        frame->quality = context->global_quality;
        Check(avcodec_send_frame(context.get(), frame.get()), "send");
        Receive(context.get(), &units);
    }
    Check(avcodec_send_frame(context.get(), nullptr), "drain");
    Receive(context.get(), &units);
    if (encoder != nullptr) {
        *encoder = std::move(context);
    }
    return units;
}
