#pragma once

#include <cstdint>
#include <string>

#include "Options.h"
#include "support/VideoFile.h"

/// Opens an input, such that an output finds its audio. \throws ToolError
VideoFile OpenInput(const Options& options, const std::string& path, double startSeconds);

/// Several inputs, one after the other, in one output.
struct JoinedInputs {
    FrameClock clock;      ///< That counts the frames of all.
    int64_t expected = 0;  ///< Frames of all, or zero if one does not say.
};

/// \param first the first input. \throws ToolError if the others do not go with it
JoinedInputs JoinInputs(const Options& options, const VideoFile& first);
