#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "PartRange.h"
#include "export/Encoding.h"
#include "support/Libav.h"

/// What is known of a part that is done. It lies beside the part's output, and is written last: a
/// part without it is not done.
struct PartRecord {
    /// Where the record of an output lies.
    static std::string PathFor(const std::string& out) { return out + ".json"; }

    /// \throws ToolError
    static PartRecord Read(const std::string& out);
    /// \throws ToolError
    void Write() const;

    std::string out;  ///< The part's file, or its numbered pictures.
    PartNumber part;
    PartRange range;
    AVRational tick = {1, 1};  ///< Of the range, in seconds.
    int64_t frames = 0;
    int64_t end = 0;        ///< When the last frame ends, in ticks from the beginning of all parts.
    bool cutShort = false;  ///< The clip goes on after the last frame that was asked for.
    uintmax_t bytes = 0;    ///< Of the file; 0 for pictures.

    std::string input;  ///< Its audio is copied when the parts are joined.
    double startSeconds = 0.0;
    AudioWay audio = AudioWay::kCopy;

    /// What all parts of a clip have in common, by name. An empty part knows less of it.
    std::map<std::string, nlohmann::json> common;
};
