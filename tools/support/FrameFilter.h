#pragma once

#include <memory>
#include <string>

#include "support/Libav.h"

struct AVFilterContext;
struct AVFilterGraph;

/// Filters of libavfilter, one behind the other, that frames go through.
class FrameFilter {
public:
    /// \param chain as libavfilter describes it \param first has the size and format of the frames
    /// \param tick  the unit of their pts. \throws ToolError
    FrameFilter(const std::string& chain, const AVFrame& first, AVRational tick);

    /// \param frame null after the last one. \throws ToolError
    void Send(const AVFrame* frame);
    /// The next frame, valid until the next call; null if there is none before more are sent.
    /// \throws ToolError
    AVFrame* Receive();

private:
    struct FreeGraph {
        void operator()(AVFilterGraph* graph) const;
    };

    static void Check(int result);

    AVRational tick_;
    std::unique_ptr<AVFilterGraph, FreeGraph> graph_;
    AVFilterContext* source_ = nullptr;
    AVFilterContext* sink_ = nullptr;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
};
