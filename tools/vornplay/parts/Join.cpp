#include "parts/Join.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "Interrupt.h"
#include "OutputGuard.h"
#include "parts/Joiners.h"
#include "support/CommandLine.h"
#include "support/NumberedPath.h"
#include "support/RunTool.h"
#include "support/ToolError.h"

namespace {

namespace fs = std::filesystem;

struct JoinOptions {
    std::string out;
    std::vector<std::string> parts;
    bool overwrite = false;
    bool quiet = false;
};

std::optional<JoinOptions> ParseJoin(int argc, char** argv) {
    JoinOptions options;
    CommandLine line("Joins the parts of a clip that --part made.", "vornplay");
    line.Option("--join", options.out, "OUT", "Write to this file or these numbered pictures");
    line.Repeated(
        "PARTS", [&options](const std::string& part) { options.parts.push_back(part); }, "",
        "The outputs of all parts, in any order");
    line.Require("PARTS");
    line.Flag("--overwrite", options.overwrite, "Replace an output that exists already");
    line.Flag("--quiet,-q", options.quiet, "No summary");
    return line.Parse(argc, argv) ? std::optional(options) : std::nullopt;
}

[[noreturn]] void Refuse(const PartRecord& one, const PartRecord& other, const std::string& why) {
    throw ToolError(one.out + " and " + other.out + " do not belong together: " + why);
}

/// An empty part does not know everything.
void CheckCommon(const PartRecord& one, const PartRecord& other) {
    if (one.part.count != other.part.count) {
        Refuse(one, other,
               "they are of " + std::to_string(one.part.count) + " and of " +
                   std::to_string(other.part.count) + " parts");
    }
    for (const auto& [name, value] : one.common) {
        const auto found = other.common.find(name);
        if (found != other.common.end() && found->second != value) {
            Refuse(one, other, name + " is " + value.dump() + " and " + found->second.dump());
        }
    }
}

void CheckNumbers(const std::vector<PartRecord>& parts) {
    const int count = parts.front().part.count;
    for (int number = 1; number <= count; ++number) {
        const auto found = std::count_if(parts.begin(), parts.end(), [number](const auto& part) {
            return part.part.number == number;
        });
        if (found != 1) {
            throw ToolError("part " + std::to_string(number) + " of " + std::to_string(count) +
                            (found == 0 ? " is missing" : " is there twice"));
        }
    }
}

void CheckGaps(const std::vector<PartRecord>& parts) {
    for (size_t i = 1; i < parts.size(); ++i) {
        const PartRange& before = parts[i - 1].range;
        if (before.begin != parts[i].range.begin || before.to != parts[i].range.from) {
            Refuse(parts[i - 1], parts[i], "one does not begin where the other ends");
        }
    }
}

/// A file that was changed since is another one.
void CheckFile(const PartRecord& part, const std::string& out) {
    std::error_code error;
    const bool pictures = NumberedPath::IsPattern(part.out);
    if (!pictures && (fs::file_size(part.out, error) != part.bytes || error)) {
        throw ToolError(part.out + ": is not the file that its record is about");
    }
    if (fs::path(part.out).extension() != fs::path(out).extension() ||
        pictures != NumberedPath::IsPattern(out)) {
        throw ToolError(out + ": is another kind of output than " + part.out);
    }
}

Parts ReadParts(const JoinOptions& options) {
    std::vector<PartRecord> parts;
    for (const std::string& path : options.parts) {
        CheckIsNoInput(options.out, path, "part");
        parts.push_back(PartRecord::Read(path));
    }
    std::sort(parts.begin(), parts.end(), [](const PartRecord& one, const PartRecord& other) {
        return one.part.number < other.part.number;
    });
    Parts filled;
    for (const PartRecord& part : parts) {
        CheckCommon(parts.front(), part);
        if (part.frames > 0) {
            CheckFile(part, options.out);
            CheckCommon(filled.empty() ? part : filled.front(), part);
            filled.push_back(part);
        }
    }
    CheckNumbers(parts);
    CheckGaps(parts);
    if (filled.empty()) {
        throw ToolError("the parts have no frames");
    }
    return filled;
}

}  // namespace

int Join(int argc, char** argv) {
    const std::optional<JoinOptions> options = ParseJoin(argc, argv);
    if (!options.has_value()) {
        return kExitDone;
    }
    const Parts parts = ReadParts(*options);
    Options output;
    output.out = options->out;
    output.overwrite = options->overwrite;
    output.quiet = options->quiet;
    CheckReplaces(output);
    const Existing existing = output.overwrite ? Existing::kReplaced : Existing::kKept;
    const auto join = NumberedPath::IsPattern(options->out) ? JoinPictures : JoinVideo;
    CatchInterrupts();
    const std::optional<int64_t> frames = join(options->out, existing, parts);
    if (!frames.has_value()) {
        return kExitInterrupted;
    }
    if (!options->quiet) {
        std::cerr << "vornplay: " << *frames << " frames of " << options->parts.size()
                  << " parts joined\n";
    }
    return kExitDone;
}
