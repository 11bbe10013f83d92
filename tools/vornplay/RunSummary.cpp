#include "RunSummary.h"

#include <cerrno>
#include <iostream>
#include <nlohmann/json.hpp>
#include <system_error>

#include "support/RunTool.h"
#include "support/ToolError.h"

namespace {

using Json = nlohmann::ordered_json;

const char* StatusName(int exitStatus) {
    switch (exitStatus) {
        case kExitDone: return "done";
        case kExitBroken: return "broken";
        case kExitInterrupted: return "stopped";
        default: return "failed";
    }
}

Json Head(const std::vector<std::string>& inputs, const std::string& output, int exitStatus) {
    Json json;
    json["status"] = StatusName(exitStatus);
    json["exit_status"] = exitStatus;
    json["inputs"] = inputs;
    json["output"] = output.empty() ? Json() : Json(output);
    return json;
}

/// Replaces what is not UTF-8, which file names need not be.
std::string Line(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

bool ReportBroken(const std::string& path, int64_t lost, int64_t damaged) {
    if (lost == 0 && damaged == 0) {
        return false;
    }
    std::cerr << "vornplay: " << path << " is broken: " << lost << " frames lost, " << damaged
              << " damaged\n";
    return true;
}

void ReportRemarks(const std::string& path, const std::vector<std::string>& remarks) {
    for (const std::string& remark : remarks) {
        std::cerr << "vornplay: " << path << ": " << remark << '\n';
    }
}

void PrintLine(const std::string& line) {
    errno = 0;
    if (!(std::cout << line << std::endl)) {
        throw ToolError("stdout: cannot be written: " + std::generic_category().message(errno));
    }
}

std::string ToJson(const RunSummary& summary) {
    Json json = Head(summary.inputs, summary.output, summary.exitStatus);
    json["path"] = summary.path;
    json["width"] = summary.size.width;
    json["height"] = summary.size.height;
    json["frame_rate"] =
        std::to_string(summary.frameRate.num) + "/" + std::to_string(summary.frameRate.den);
    json["frames_expected"] = summary.expected > 0 ? Json(summary.expected) : Json();
    json["frames_drawn"] = summary.drawn;
    json["frames_shown"] = summary.shown;
    json["frames_dropped"] = summary.dropped;
    json["times_repaired"] = summary.repaired;
    json["frames_lost"] = summary.lost;
    json["frames_damaged"] = summary.damaged;
    json["seconds"] = summary.seconds;
    json["elapsed_seconds"] = summary.elapsedSeconds;
    json["ms_per_draw"] = summary.millisecondsPerDraw;
    json["audio_copied"] = summary.audio.copied;
    json["audio_encoded"] = summary.audio.encoded;
    json["audio_left_out"] = summary.audio.leftOut;
    return Line(json);
}

std::string FailureToJson(const std::vector<std::string>& inputs, const std::string& output,
                          const std::string& error) {
    Json json = Head(inputs, output, kExitBadInput);
    json["error"] = error;
    return Line(json);
}
