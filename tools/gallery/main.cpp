// Draws every mesh of the kernel into a PNG file of its own.

#include <filesystem>
#include <iostream>

#include "Painter.h"
#include "Pictures.h"
#include "Scenes.h"
#include "offscreen/OffscreenContext.h"
#include "support/CommandLine.h"
#include "support/PngFile.h"
#include "support/RunTool.h"
#include "support/ToolError.h"

namespace {

int Run(int argc, char** argv) {
    std::string out;
    std::string photo;
    std::string size = "480x360";
    CLI::App app("Draws every mesh of the kernel, each into a picture of its own.", "gallery");
    app.formatter(std::make_shared<PlainHelp>());
    app.add_option("--out", out, "Where to write the pictures")->type_name("FOLDER")->required();
    app.add_option("--photo", photo, "A picture to show on the meshes")->type_name("FILE");
    app.add_option("--size", size, "Size of each picture (default: 480x360)")->type_name("WxH");
    if (!ParseCommandLine(app, argc, argv)) {
        return kExitDone;
    }
    const OffscreenContext context;
    if (!GLES3::LoadGLFunctions()) {
        throw ToolError("this GL lacks functions of OpenGL ES 3");
    }
    Painter painter(ParseSize(size), DrawPanorama(), LoadPhoto(photo));
    std::filesystem::create_directories(out);
    for (const Scene& scene : Scenes()) {
        const std::string file = out + "/" + scene.name + ".png";
        WritePng(file, painter.Draw(scene));
        std::cout << file << '\n';
    }
    return kExitDone;
}

}  // namespace

int main(int argc, char** argv) {
    return RunTool("gallery", [argc, argv] { return Run(argc, argv); });
}
