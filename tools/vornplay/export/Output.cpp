#include "Output.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <sstream>

#include "support/NumberedPath.h"
#include "support/ToolError.h"

namespace {

std::string Extension(const std::string& path) {
    return std::filesystem::path(path).extension();
}

bool IsOfKind(const std::string& path, const OutputKind& kind) {
    const bool numbered = kind.frames == OutputFrames::kNumbered;
    return Extension(path) == Extension(kind.example) &&
           (kind.frames == OutputFrames::kAll || NumberedPath::IsPattern(path) == numbered);
}

/// Each once.
std::string Extensions() {
    std::string list;
    std::string last;
    for (const OutputKind& kind : OutputKinds()) {
        const std::string extension = Extension(kind.example);
        if (extension != last) {
            list += (list.empty() ? "" : ", ") + extension;
        }
        last = extension;
    }
    return list;
}

const OutputKind& KindOf(const std::string& path) {
    const auto& kinds = OutputKinds();
    const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const OutputKind& candidate) {
        return IsOfKind(path, candidate);
    });
    if (kind == kinds.end()) {
        throw ToolError(path + ": the output ends in none of " + Extensions());
    }
    return *kind;
}

}  // namespace

Output OpenOutput(const OutputSettings& settings) {
    const OutputKind& kind = KindOf(settings.path);
    if (settings.encoding.ChoosesVideo() && kind.audio == nullptr) {
        throw ToolError(settings.path + ": --codec, --crf and --preset are for mp4, mkv and webm");
    }
    Output output;
    output.sink = kind.make(settings);
    output.limit = kind.frames == OutputFrames::kFirst ? 1 : 0;
    output.audio = kind.audio != nullptr ? output.sink->Audio()
                                         : AudioReport{{}, settings.input.AudioCodecs()};
    return output;
}

const char* Words(OutputAlpha alpha) {
    switch (alpha) {
        case OutputAlpha::kKept: return "kept";
        case OutputAlpha::kOneBit: return "kept as on or off";
        case OutputAlpha::kFlattened: return "none, over the backdrop";
    }
    return "";
}

std::string OutputExamples() {
    std::string list;
    for (const OutputKind& kind : OutputKinds()) {
        const bool last = &kind == &OutputKinds().back();
        list += (list.empty() ? "" : last ? " or " : ", ") + std::string(kind.example);
    }
    return list;
}

std::string OutputNotes() {
    std::ostringstream text;
    for (const OutputKind& kind : OutputKinds()) {
        text << "  " << std::left << std::setw(14) << kind.example << kind.holds
             << "; alpha: " << Words(kind.alpha);
        if (kind.audio != nullptr) {
            text << "; audio: " << kind.audio;
        }
        text << '\n';
    }
    return text.str();
}
