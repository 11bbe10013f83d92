#include "support/FrameFilter.h"

#include <algorithm>
#include <sstream>

#include "support/ToolError.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

void FrameFilter::FreeGraph::operator()(AVFilterGraph* graph) const {
    avfilter_graph_free(&graph);
}

void FrameFilter::Check(int result) {
    if (result < 0) {
        throw ToolError("libavfilter cannot do this: " + LibavMessage(result));
    }
}

FrameFilter::FrameFilter(const std::string& chain, const AVFrame& first, AVRational tick)
    : tick_(tick), graph_(avfilter_graph_alloc()) {
    std::ostringstream text;
    text << "buffer=width=" << first.width << ":height=" << first.height
         << ":pix_fmt=" << first.format << ":time_base=" << tick.num << '/' << tick.den << ","
         << chain << ",buffersink";
    AVFilterInOut* inputs = nullptr;
    AVFilterInOut* outputs = nullptr;
    const int parsed = avfilter_graph_parse2(graph_.get(), text.str().c_str(), &inputs, &outputs);
    avfilter_inout_free(&inputs);
    avfilter_inout_free(&outputs);
    Check(parsed);
    Check(avfilter_graph_config(graph_.get(), nullptr));
    source_ = graph_->filters[0];
    sink_ = *std::find_if(graph_->filters, graph_->filters + graph_->nb_filters,
                          [](const AVFilterContext* filter) { return filter->nb_outputs == 0; });
}

void FrameFilter::Send(const AVFrame* frame) {
    // The caller keeps its frame.
    Check(av_buffersrc_write_frame(source_, frame));
}

AVFrame* FrameFilter::Receive() {
    av_frame_unref(frame_.get());
    const int result = av_buffersink_get_frame(sink_, frame_.get());
    if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) {
        return nullptr;
    }
    Check(result);
    frame_->pts = av_rescale_q(frame_->pts, av_buffersink_get_time_base(sink_), tick_);
    return frame_.get();
}
