#include "window/SaveFrame.h"

#include <filesystem>
#include <iomanip>
#include <sstream>

#include "support/PngFile.h"

namespace {

/// "clip-12.480s", or "frame-12.480s" for a numbered sequence.
std::string NameOf(const Stage& stage) {
    std::string stem = std::filesystem::path(stage.GetOptions().input).stem().string();
    if (stem.empty() || stem.find('%') != std::string::npos) {
        stem = "frame";
    }
    std::ostringstream name;
    name << stem << '-' << std::fixed << std::setprecision(3) << stage.Seconds() << 's';
    return name.str();
}

}  // namespace

std::string SaveFrame(Stage& stage) {
    const std::string name = NameOf(stage);
    std::string path = name + ".png";
    for (int number = 2; std::filesystem::exists(path); ++number) {
        path = name + "-" + std::to_string(number) + ".png";
    }
    stage.Draw();  // The shot may have changed since the last draw.
    WritePng(path, stage.ReadBack());
    return path;
}
