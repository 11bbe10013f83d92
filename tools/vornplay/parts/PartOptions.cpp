#include "parts/PartOptions.h"

#include <set>

#include "OptionValues.h"
#include "parts/Fingerprint.h"
#include "support/ToolError.h"

void AddPartOptions(CommandLine& line, Options& options) {
    line.Group("Parts");
    line.Option("--part", options.part, ParsePart, "K/N",
                "Draw the K-th of N parts of the clip, which begin at key frames");
    line.Need("--part", "--out");
    line.Exclude("--part", "--frames");
    const auto refuse = [](const std::string& /*value*/) {
        throw ToolError("comes first: vornplay --join OUT PARTS...");
    };
    line.Option("--join", refuse, "OUT",
                "Join parts without encoding them again: vornplay --join OUT PARTS...");
}

std::vector<std::string> OptionsOfPictures(const CommandLine& line) {
    static const std::set<std::string> kOthers = {"INPUT",       "--part",     "--out",
                                                  "--json",      "--quiet",    "--verbose",
                                                  "--no-window", "--platform", "--overwrite"};
    std::vector<std::string> list;
    for (const auto& [name, values] : line.Given()) {
        if (kOthers.count(name) > 0) {
            continue;
        }
        std::string text = name;
        for (const std::string& value : values) {
            const std::string content = Fingerprint(value);
            text += " " + value + (content.empty() ? "" : " (" + content + ")");
        }
        list.push_back(text);
    }
    return list;
}
