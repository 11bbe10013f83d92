// Runs the program of a documentation page. Writes the picture that it draws, or compares it with
// the picture on the page.

#include <linux_platform/Host.h>

#include <array>
#include <cmath>
#include <iostream>
#include <string>

#include "Scene.h"
#include "offscreen/OffscreenContext.h"
#include "support/Backdrop.h"
#include "support/CommandLine.h"
#include "support/ComparePicture.h"
#include "support/PngFile.h"
#include "support/RunTool.h"
#include "support/ToolError.h"
#include "vornplay/Texture.h"
#include "vornplay/UnitReader.h"

namespace {

struct Arguments {
    std::string frame;
    std::string sticker;
    std::string clip;
    std::string out;
    std::string expected;
};

bool Parse(int argc, char** argv, Arguments& arguments) {
    CommandLine line("Runs the program of a documentation page.", "example");
    line.Option("--frame", arguments.frame, "PNG", "The frame");
    line.Option("--sticker", arguments.sticker, "PNG", "The sticker");
    line.Option("--clip", arguments.clip, "FILE", "Compressed video; starts a JVM");
    line.Option("--out", arguments.out, "PNG", "Write the picture here");
    line.Option("--expect", arguments.expected, "PNG", "Compare the picture with this one");
    line.Require("--frame");
    line.Require("--sticker");
    return line.Parse(argc, argv);
}

JavaVM* StartJava() {
    std::array<char, 256> error{};
    JavaVM* machine = HostJava_start(nullptr, error.data(), error.size());
    if (machine == nullptr) {
        throw ToolError(error.data());
    }
    return machine;
}

std::vector<Unit> ReadUnits(const std::string& path) {
    VideoFile file(path);
    UnitReader reader(file);
    std::vector<Unit> units;
    while (const AVPacket* unit = reader.Next()) {
        const double seconds = file.SecondsOf(unit->pts);
        units.push_back({{unit->data, unit->data + unit->size}, std::llround(seconds * 1e6)});
    }
    return units;
}

Pixels View(Image& image) {
    return {image.size.width, image.size.height, image.pixels.data()};
}

/// The picture that the program drew. A checkerboard shows where it is transparent.
Image Picture(const Arguments& arguments) {
    Image frame = ReadPng(arguments.frame);
    Image sticker = ReadPng(arguments.sticker);
    const OffscreenContext context;
    const Texture texture;
    Scene scene{static_cast<int>(texture.Name()), View(frame), View(sticker), nullptr, {}};
    if (!arguments.clip.empty()) {
        scene.javaVM = StartJava();
        scene.clip = ReadUnits(arguments.clip);
    }
    Draw(scene);

    Image drawn(frame.size);
    TextureReader().Read(texture, drawn);
    Backdrop().Flatten(drawn);
    return drawn;
}

}  // namespace

int main(int argc, char** argv) {
    return RunTool("example", [&] {
        Arguments arguments;
        if (Parse(argc, argv, arguments)) {
            const Image picture = Picture(arguments);
            if (!arguments.out.empty()) {
                WritePng(arguments.out, picture);
            }
            if (!arguments.expected.empty()) {
                ComparePicture(picture, arguments.expected);
            }
        }
        return int{kExitDone};
    });
}
