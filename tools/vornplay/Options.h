#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Script.h"
#include "export/Encoding.h"
#include "parts/PartRange.h"
#include "render/VEStickerList.h"
#include "support/Backdrop.h"
#include "support/Image.h"

/// How frames go to the renderer.
enum class Handover { kAuto, kCompressed, kPixels };

/// What the command line asks for.
struct Options {
    std::vector<std::string> inputs;  ///< To be played one after the other.
    std::string input;                ///< The one that is played.
    std::string out;                  ///< Empty: nothing is written. "-": stdout.
    std::string format;               ///< Of the output; empty: as its path ends.
    Handover handover = Handover::kAuto;
    std::string platform;  ///< Directory of the Android platform. Empty: the build's.
    bool realtime = false;
    bool rgb = false;
    bool rgba = false;
    bool autorotate = true;
    bool keepInterlaced = false;
    Size size;  ///< Zero: the input's.
    double startSeconds = 0.0;
    int64_t frames = 0;            ///< Zero: all.
    double durationSeconds = 0.0;  ///< Zero: to the end.

    std::string mask;  ///< Empty: none.
    bool rgbMask = false;
    Size maskSize;  ///< Zero: the mask's own.

    std::string sticker;  ///< Empty: none.
    VEStickerList positions;

    bool mirror = false;
    std::optional<VEView> view;
    std::optional<VEView> viewTo;
    std::optional<Script> script;
    Rgba clear = {0, 0, 0, 255};
    Backdrop backdrop;

    Encoding encoding;
    std::optional<PartNumber> part;  ///< None: the whole clip.
    /// The options that decide how pictures look, as they were given; for parts.
    std::vector<std::string> given;
    bool overwrite = false;
    bool noWindow = false;
    bool json = false;
    bool quiet = false;
    bool verbose = false;

    /// What is written, measured or ends by itself needs none.
    bool WantsWindow() const {
        return out.empty() && !noWindow && !json && !realtime && frames == 0 &&
               durationSeconds <= 0.0 && !viewTo.has_value() && !script.has_value();
    }
};

/// Reads the command line; nothing when the user only asked for help. \throws ToolError
std::optional<Options> ParseOptions(int argc, char** argv);
