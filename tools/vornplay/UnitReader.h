#pragma once

#include "support/Libav.h"
#include "support/VideoFile.h"

extern "C" {
#include <libavcodec/bsf.h>
}

#include <memory>

/// Reads the access units of a file in the form that platform decoders take: H.264 with start
/// codes, and with parameter sets in the first one and before key frames; JPEG pictures unchanged.
class UnitReader {
public:
    /// \throws ToolError
    explicit UnitReader(VideoFile& file);

    /// The next unit, valid until the next call; empty if the packet is not a valid unit. Null at
    /// the end.
    AVPacket* Next();

private:
    struct FreeFilter {
        void operator()(AVBSFContext* filter) const { av_bsf_free(&filter); }
    };

    void AddParameterSets();

    VideoFile& file_;
    std::unique_ptr<AVBSFContext, FreeFilter> filter_;
    LibavPtr<AVPacket> unit_{av_packet_alloc()};
    bool started_ = false;
};
