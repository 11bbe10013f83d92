#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "FrameSink.h"

enum class OutputFrames { kFirst, kNumbered, kAll };
enum class OutputAlpha { kKept, kOneBit, kFlattened };

/// A kind of file that drawn frames are written to. The help and docs/vornplay.md show its words.
struct OutputKind {
    const char* example;  ///< A path; its extension is the kind's.
    const char* holds;
    OutputFrames frames;  ///< The first one, each in a file of its number, or all in one file.
    OutputAlpha alpha;
    const char* audio;  ///< The codecs whose tracks are copied; null for none.
    bool streams;       ///< Can be written to stdout.
    std::function<std::unique_ptr<FrameSink>(const OutputSettings&)> make;
};

/// All kinds, in the order of the help.
const std::vector<OutputKind>& OutputKinds();
