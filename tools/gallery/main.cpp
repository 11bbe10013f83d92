// Draws every mesh of the kernel, each into a PNG file.

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "Painter.h"
#include "Pictures.h"
#include "Scenes.h"
#include "offscreen/OffscreenContext.h"
#include "support/CommandLine.h"
#include "support/ComparePicture.h"
#include "support/FrameConverter.h"
#include "support/PngFile.h"
#include "support/RunTool.h"
#include "support/ToolError.h"
#include "support/VideoReader.h"

namespace {

struct Arguments {
    std::string out;
    std::string expected;
    std::string photo;
    Size size = {360, 270};
};

bool Parse(int argc, char** argv, Arguments& arguments) {
    CommandLine line("Draws every mesh of the kernel, each into a PNG file.", "gallery");
    line.Option("--out", arguments.out, "FOLDER", "Write the pictures into this folder");
    line.Option("--expect", arguments.expected, "FOLDER",
                "Compare the pictures with those of this folder");
    line.Option("--photo", arguments.photo, "FILE", "A picture to show on the meshes");
    line.Option("--size", arguments.size, ParseSize, "WxH",
                "Size of each picture (default: 360x270)");
    return line.Parse(argc, argv);
}

/// The first picture of the file \p path. \throws ToolError
Image LoadPhoto(const std::string& path) {
    VideoReader reader(path);
    const AVFrame& frame = reader.First();
    FrameConverter converter({frame.width, frame.height}, AV_PIX_FMT_RGBA);
    Image photo({frame.width, frame.height});
    std::copy_n(converter.Convert(frame), converter.ByteSize(), photo.pixels.begin());
    return photo;
}

/// \throws ToolError when \p folder has a picture without a scene
void CheckNothingElseIn(const std::string& folder) {
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        const std::string name = file.path().stem();
        if (std::none_of(Scenes().begin(), Scenes().end(),
                         [&name](const Scene& scene) { return scene.name == name; })) {
            throw ToolError(file.path().string() + " is no picture of the gallery");
        }
    }
}

void DrawAll(const Arguments& arguments) {
    const OffscreenContext context;
    if (!GLES3::LoadGLFunctions()) {
        throw ToolError("this GL lacks functions of OpenGL ES 3");
    }
    const Image photo = arguments.photo.empty() ? DrawLandscape() : LoadPhoto(arguments.photo);
    Painter painter(arguments.size, DrawPanorama(), photo);
    for (const Scene& scene : Scenes()) {
        const Image picture = painter.Draw(scene);
        const std::string file = "/" + scene.name + ".png";
        if (!arguments.out.empty()) {
            WritePng(arguments.out + file, picture);
            std::cout << arguments.out + file << '\n';
        }
        if (!arguments.expected.empty()) {
            ComparePicture(picture, arguments.expected + file);
        }
    }
}

int Run(int argc, char** argv) {
    Arguments arguments;
    if (!Parse(argc, argv, arguments)) {
        return kExitDone;
    }
    if (arguments.out.empty() && arguments.expected.empty()) {
        throw ToolError("give --out or --expect");
    }
    if (!arguments.out.empty()) {
        std::filesystem::create_directories(arguments.out);
    }
    DrawAll(arguments);
    if (!arguments.expected.empty()) {
        CheckNothingElseIn(arguments.expected);
    }
    return kExitDone;
}

}  // namespace

int main(int argc, char** argv) {
    return RunTool("gallery", [argc, argv] { return Run(argc, argv); });
}
