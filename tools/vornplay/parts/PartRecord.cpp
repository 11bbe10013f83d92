#include "parts/PartRecord.h"

#include <filesystem>
#include <fstream>

#include "support/NumberedPath.h"
#include "support/OutputFile.h"
#include "support/ToolError.h"

namespace {

using Json = nlohmann::json;

constexpr int kVersion = 1;

Json TimeOrEnd(int64_t time) {
    return time == PartRange::kEnd ? Json() : Json(time);
}

int64_t TimeOrEnd(const Json& time) {
    return time.is_null() ? PartRange::kEnd : time.get<int64_t>();
}

PartRecord Parse(const Json& json) {
    if (json.at("vornplay_part") != kVersion) {
        throw ToolError("of another version");
    }
    PartRecord record;
    record.part = {json.at("part"), json.at("parts")};
    record.range.isPart = true;
    record.range.begin = json.at("begin");
    record.range.from = TimeOrEnd(json.at("from"));
    record.range.to = TimeOrEnd(json.at("to"));
    record.tick = {1, json.at("ticks_per_second")};
    record.frames = json.at("frames");
    record.end = json.at("end");
    record.cutShort = json.at("cut_short");
    record.bytes = json.at("bytes");
    record.input = json.at("input");
    record.startSeconds = json.at("start");
    record.audio = static_cast<AudioWay>(json.at("audio").get<int>());
    record.common = json.at("common");
    return record;
}

}  // namespace

PartRecord PartRecord::Read(const std::string& out) {
    std::ifstream file(PathFor(out));
    if (!file) {
        throw ToolError(out + ": is no part that is done; " + PathFor(out) + " is missing");
    }
    try {
        PartRecord record = Parse(Json::parse(file));
        record.out = out;
        return record;
    } catch (const std::exception& error) {
        throw ToolError(PathFor(out) + ": is no record of a part: " + error.what());
    }
}

void PartRecord::Write() const {
    const Json json = {{"vornplay_part", kVersion},
                       {"part", part.number},
                       {"parts", part.count},
                       {"begin", range.begin},
                       {"from", TimeOrEnd(range.from)},
                       {"to", TimeOrEnd(range.to)},
                       {"ticks_per_second", tick.den},
                       {"frames", frames},
                       {"end", end},
                       {"cut_short", cutShort},
                       {"bytes", bytes},
                       {"input", input},
                       {"start", startSeconds},
                       {"audio", static_cast<int>(audio)},
                       {"common", common}};
    const std::string text = json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
    CreateDirectoryOf(PathFor(out));
    OutputFile file(PathFor(out));
    file.Write(text.data(), text.size());
    file.Commit();
}
