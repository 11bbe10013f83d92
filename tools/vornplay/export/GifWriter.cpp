#include "GifWriter.h"

#include <algorithm>
#include <sstream>

#include "support/ToolError.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

namespace {

constexpr char kPalettes[] =
    "split[pixels][colors];[colors]palettegen=stats_mode=single[palette];"
    "[pixels][palette]paletteuse=new=1:dither=bayer:bayer_scale=4:alpha_threshold=128";

VideoCoding Coding() {
    return {AV_CODEC_ID_GIF, nullptr, AV_PIX_FMT_PAL8, {}};
}

/// \return the path
const std::string& CheckRate(const std::string& path, AVRational frameRate) {
    constexpr double kClock = 100.0;
    if (av_q2d(frameRate) > kClock) {
        throw ToolError(path + ": a gif shows at most 100 frames a second");
    }
    return path;
}

}  // namespace

void GifWriter::FreeGraph::operator()(AVFilterGraph* graph) const {
    avfilter_graph_free(&graph);
}

GifWriter::GifWriter(const std::string& path, Size size, AVRational frameRate)
    : muxer_(CheckRate(path, frameRate), "gif"),
      video_(muxer_, Coding(), size, frameRate, ColorTags()),
      graph_(avfilter_graph_alloc()) {
    OpenPalettes(size, frameRate);
    muxer_.Begin({{"loop", "0"}});
}

void GifWriter::OpenPalettes(Size size, AVRational frameRate) {
    std::ostringstream text;
    text << "buffer=width=" << size.width << ":height=" << size.height
         << ":pix_fmt=rgba:time_base=" << frameRate.den << '/' << frameRate.num << "," << kPalettes
         << ",buffersink";
    AVFilterInOut* inputs = nullptr;
    AVFilterInOut* outputs = nullptr;
    const int parsed = avfilter_graph_parse2(graph_.get(), text.str().c_str(), &inputs, &outputs);
    avfilter_inout_free(&inputs);
    avfilter_inout_free(&outputs);
    muxer_.Check(parsed);
    muxer_.Check(avfilter_graph_config(graph_.get(), nullptr));
    source_ = graph_->filters[0];
    sink_ = *std::find_if(graph_->filters, graph_->filters + graph_->nb_filters,
                          [](const AVFilterContext* filter) { return filter->nb_outputs == 0; });
}

void GifWriter::Fill(const Image& frame) {
    frame_->format = AV_PIX_FMT_RGBA;
    frame_->width = frame.size.width;
    frame_->height = frame.size.height;
    frame_->pts = frames_++;
    muxer_.Check(av_frame_get_buffer(frame_.get(), 0));
    const size_t rowBytes = static_cast<size_t>(frame.size.width) * Image::kChannels;
    for (int y = 0; y < frame.size.height; ++y) {
        std::copy_n(frame.At(0, y), rowBytes,
                    frame_->data[0] + static_cast<ptrdiff_t>(y) * frame_->linesize[0]);
    }
}

void GifWriter::Write(const Image& frame) {
    Fill(frame);
    muxer_.Check(av_buffersrc_add_frame(source_, frame_.get()));
    Drain();
}

/// Writes the pictures that have got their palettes.
void GifWriter::Drain() {
    int result = 0;
    while ((result = av_buffersink_get_frame(sink_, frame_.get())) >= 0) {
        video_.Write(*frame_);
        av_frame_unref(frame_.get());
    }
    if (result != AVERROR(EAGAIN) && result != AVERROR_EOF) {
        muxer_.Check(result);
    }
}

void GifWriter::Finish(bool /*cutShort*/) {
    muxer_.Check(av_buffersrc_add_frame(source_, nullptr));
    Drain();
    video_.Finish();
    muxer_.Finish();
}
