#pragma once

#include "support/Libav.h"
#include "support/VideoFile.h"

extern "C" {
#include <libavcodec/bsf.h>
}

#include <memory>

/// The access units of a file, as platform decoders take them: H.264 with start codes, and with the
/// parameter sets in front of key frames; JPEG pictures as they are.
class UnitReader {
public:
    /// \throws ToolError
    explicit UnitReader(VideoFile& file);

    /// The next unit, valid until the next call; of no bytes where the packet is no valid unit.
    /// Null at the end.
    AVPacket* Next();

private:
    struct FreeFilter {
        void operator()(AVBSFContext* filter) const { av_bsf_free(&filter); }
    };

    VideoFile& file_;
    std::unique_ptr<AVBSFContext, FreeFilter> filter_;
    LibavPtr<AVPacket> unit_{av_packet_alloc()};
};
