#include "window/Snapshot.h"

#include <filesystem>
#include <iomanip>
#include <sstream>

#include "support/PngFile.h"

namespace {

std::string NameOf(const Stage& stage) {
    std::string stem = std::filesystem::path(stage.GetOptions().input).stem().string();
    if (stem.empty() || stem.find('%') != std::string::npos) {
        stem = "frame";  // A numbered sequence.
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
    stage.Draw();  // What was asked for since it was drawn last is seen, too.
    WritePng(path, stage.ReadBack());
    return path;
}
