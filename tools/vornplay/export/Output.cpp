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

bool IsOfKind(const OutputSettings& settings, const OutputKind& kind) {
    const std::string& path = settings.path;
    const bool numbered = kind.frames == OutputFrames::kNumbered;
    const std::string usual = path == "-" ? ".mkv" : Extension(path);
    return (settings.format.empty() ? usual : "." + settings.format) == Extension(kind.example) &&
           (kind.frames == OutputFrames::kAll || NumberedPath::IsPattern(path) == numbered);
}

std::string Extensions(bool streaming) {
    std::string list;
    std::string last;
    for (const OutputKind& kind : OutputKinds()) {
        const std::string extension = Extension(kind.example);
        if (extension != last && (!streaming || kind.streams)) {
            list += (list.empty() ? "" : ", ") + extension;
        }
        last = extension;
    }
    return list;
}

const OutputKind& KindOf(const OutputSettings& settings) {
    const auto& kinds = OutputKinds();
    const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const OutputKind& candidate) {
        return IsOfKind(settings, candidate);
    });
    if (kind == kinds.end()) {
        throw ToolError(settings.path + ": the output ends in none of " + Extensions(false));
    }
    if (settings.path == "-" && !kind->streams) {
        throw ToolError("--format " + settings.format +
                        ": this kind of file cannot be written to stdout; those that can are " +
                        Extensions(true));
    }
    return *kind;
}

}  // namespace

Output OpenOutput(const OutputSettings& settings) {
    const OutputKind& kind = KindOf(settings);
    if (settings.encoding.ChoosesVideo() && kind.audio == nullptr) {
        throw ToolError(settings.path +
                        ": --codec, --crf and --preset are for mp4, mkv, webm and ts");
    }
    Output output;
    output.sink = kind.make(settings);
    output.limit = kind.frames == OutputFrames::kFirst ? 1 : 0;
    output.audio = kind.audio != nullptr ? output.sink->Audio()
                                         : AudioReport{{}, {}, settings.input.AudioCodecs()};
    return output;
}

bool TakesParts(const std::string& path) {
    const std::string extension = Extension(path);
    return extension == ".mp4" || extension == ".mkv" || extension == ".webm" ||
           (extension == ".png" && NumberedPath::IsPattern(path));
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

std::vector<std::string> OutputFormats() {
    std::vector<std::string> formats;
    for (const OutputKind& kind : OutputKinds()) {
        const std::string format = Extension(kind.example).substr(1);
        if (formats.empty() || formats.back() != format) {
            formats.push_back(format);
        }
    }
    return formats;
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
