#pragma once

#include <memory>

#include "Options.h"
#include "export/AudioReport.h"
#include "support/Image.h"
#include "support/VideoFile.h"

/// Where drawn frames go.
class FrameSink {
public:
    FrameSink() = default;
    virtual ~FrameSink() = default;
    FrameSink(const FrameSink&) = delete;
    FrameSink& operator=(const FrameSink&) = delete;

    /// \throws ToolError
    virtual void Write(const Image& frame) = 0;

    /// Completes the output; without it there is none.
    /// \param cutShort the input goes on after the frames that were written
    /// \throws ToolError
    virtual void Finish(bool cutShort) { (void)cutShort; }

    /// What became of the input's audio.
    virtual AudioReport Audio() const { return {}; }

    /// How many frames it takes; 0 for any number.
    virtual int64_t Limit() const { return 0; }
};

/// The writer for the output that \p options name; null when they name none. \throws ToolError
std::unique_ptr<FrameSink> MakeFrameSink(const Options& options, Size size, const VideoFile& input);
