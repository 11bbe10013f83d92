#pragma once

#include "support/Libav.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

/// The functions of libavfilter. It is loaded for the first clip that needs it: with all that it
/// depends on, it adds 25 ms to the start of a program.
struct FilterLibrary {
    /// \throws ToolError if there is no such library
    static const FilterLibrary& Get();

    decltype(&::avfilter_graph_alloc) graphAlloc;
    decltype(&::avfilter_graph_free) graphFree;
    decltype(&::avfilter_graph_parse2) graphParse;
    decltype(&::avfilter_graph_config) graphConfig;
    decltype(&::avfilter_inout_free) inoutFree;
    decltype(&::av_buffersrc_write_frame) writeFrame;
    decltype(&::av_buffersink_get_frame) getFrame;
    decltype(&::av_buffersink_get_time_base) timeBase;
};
