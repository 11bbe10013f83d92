#include "parts/PartRun.h"

#include <filesystem>
#include <iostream>

#include "Player.h"
#include "Version.h"
#include "export/Output.h"
#include "parts/Fingerprint.h"
#include "parts/PartCuts.h"
#include "parts/PartRecord.h"
#include "support/NumberedPath.h"
#include "support/OutputFile.h"
#include "support/RunTool.h"
#include "support/ToolError.h"

namespace {

namespace fs = std::filesystem;

/// Forgets what an earlier run made: from now on the part is not done.
void ForgetRecord(const Options& options) {
    const std::string path = PartRecord::PathFor(options.out);
    std::error_code ignored;
    if (fs::exists(path, ignored) && !options.overwrite) {
        RefuseExisting(path);
    }
    fs::remove(path, ignored);
}

PartRecord Start(const Options& options, const PartRange& range) {
    PartRecord record;
    record.out = options.out;
    record.part = *options.part;
    record.range = range;
    record.input = fs::absolute(options.input).string();
    record.startSeconds = options.startSeconds;
    record.audio = options.encoding.audio;
    record.common["source"] = fs::path(options.input).filename().string();
    record.common["content"] = Fingerprint(options.input);
    record.common["kind"] = fs::path(options.out).extension().string();
    record.common["version"] = CodecVersions();
    record.common["options"] = options.given;
    return record;
}

std::string Text(AVRational rate) {
    return std::to_string(rate.num) + "/" + std::to_string(rate.den);
}

void NoteRun(PartRecord& record, const Player& player) {
    const RunSummary& summary = player.Summary();
    record.frames = summary.drawn;
    record.end = player.End();
    record.cutShort = player.IsCutShort();
    record.tick = player.Source().Times().Clock().tick;
    record.bytes = NumberedPath::IsPattern(record.out) ? 0 : fs::file_size(record.out);
    record.common["path"] = summary.path;
    record.common["size"] = {summary.size.width, summary.size.height};
    record.common["frame_rate"] = Text(summary.frameRate);
    record.common["corrections"] = player.Source().Remarks();
}

}  // namespace

int PlayPart(const Options& options) {
    if (!TakesParts(options.out)) {
        throw ToolError(options.out + ": --part is for mp4, mkv, webm and numbered pictures");
    }
    if (options.inputs.size() > 1) {
        throw ToolError("--part goes with one input");
    }
    ForgetRecord(options);
    const PartRange range = FindPart(options);
    PartRecord record = Start(options, range);
    int status = kExitDone;
    if (!range.IsEmpty()) {
        Player player(options, range);
        status = player.Play();
        if (status == kExitInterrupted || status == kExitUncuttable) {
            return status;
        }
        if (player.Summary().drawn > 0) {
            NoteRun(record, player);
        }
    } else if (!options.quiet) {
        std::cerr << "vornplay: part " << options.part->number << " of " << options.part->count
                  << " has no frames\n";
    }
    record.Write();
    return status;
}
