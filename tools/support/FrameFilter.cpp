#include "support/FrameFilter.h"

#include <algorithm>
#include <sstream>

#include "support/FilterLibrary.h"
#include "support/ToolError.h"

void FrameFilter::FreeGraph::operator()(AVFilterGraph* graph) const {
    FilterLibrary::Get().graphFree(&graph);
}

void FrameFilter::Check(int result) {
    if (result < 0) {
        throw ToolError("libavfilter cannot do this: " + LibavMessage(result));
    }
}

FrameFilter::FrameFilter(const std::string& chain, const AVFrame& first, AVRational tick)
    : tick_(tick), graph_(FilterLibrary::Get().graphAlloc()) {
    const FilterLibrary& library = FilterLibrary::Get();
    std::ostringstream text;
    text << "buffer=width=" << first.width << ":height=" << first.height
         << ":pix_fmt=" << first.format << ":time_base=" << tick.num << '/' << tick.den << ","
         << chain << ",buffersink";
    AVFilterInOut* inputs = nullptr;
    AVFilterInOut* outputs = nullptr;
    const int parsed = library.graphParse(graph_.get(), text.str().c_str(), &inputs, &outputs);
    library.inoutFree(&inputs);
    library.inoutFree(&outputs);
    Check(parsed);
    Check(library.graphConfig(graph_.get(), nullptr));
    source_ = graph_->filters[0];
    sink_ = *std::find_if(graph_->filters, graph_->filters + graph_->nb_filters,
                          [](const AVFilterContext* filter) { return filter->nb_outputs == 0; });
}

void FrameFilter::Send(const AVFrame* frame) {
    // The caller keeps its frame.
    Check(FilterLibrary::Get().writeFrame(source_, frame));
}

AVFrame* FrameFilter::Receive() {
    av_frame_unref(frame_.get());
    const int result = FilterLibrary::Get().getFrame(sink_, frame_.get());
    if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) {
        return nullptr;
    }
    Check(result);
    frame_->pts = av_rescale_q(frame_->pts, FilterLibrary::Get().timeBase(sink_), tick_);
    return frame_.get();
}
