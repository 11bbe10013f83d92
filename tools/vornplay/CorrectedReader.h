#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/FrameFilter.h"
#include "support/VideoReader.h"

/// Whether the colors are of a high dynamic range, which has to be mapped to that of screens.
bool IsHdr(AVColorTransferCharacteristic transfer);
/// Whether two fields of different times may make one picture.
bool IsInterlaced(AVFieldOrder order);

/// Reads frames as screens show them: deinterlaced, and in colors of a standard dynamic range.
class CorrectedReader {
public:
    /// \param file nothing was read from it yet. \throws ToolError
    CorrectedReader(VideoFile file, bool keepInterlaced)
        : reader_(std::move(file)), keepInterlaced_(keepInterlaced) {}

    /// As VideoReader's.
    const AVFrame* Next();
    const AVFrame& First();

    const VideoReader& Reader() const { return reader_; }
    /// What was corrected, each in a line for the user.
    const std::vector<std::string>& Remarks() const { return remarks_; }
    bool IsToneMapped() const { return toneMapped_; }

private:
    void Choose(const AVFrame& first);
    void Send(const AVFrame* frame);

    VideoReader reader_;
    bool keepInterlaced_;
    bool started_ = false;
    bool drained_ = false;
    bool toneMapped_ = false;
    std::optional<FrameFilter> filter_;
    LibavPtr<AVFrame> sent_{av_frame_alloc()};
    std::vector<std::string> remarks_;
};
