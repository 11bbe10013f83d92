// Compares a picture with the one on a page, or puts it there.

#include <string>

#include "support/CommandLine.h"
#include "support/ComparePicture.h"
#include "support/FrameConverter.h"
#include "support/PngFile.h"
#include "support/RunTool.h"
#include "support/VideoReader.h"

namespace {

Image ReadAny(const std::string& path) {
    VideoReader reader(path);
    const AVFrame& frame = reader.First();
    Image image({frame.width, frame.height});
    FrameConverter converter(image.size, AV_PIX_FMT_RGBA);
    const uint8_t* pixels = converter.Convert(frame);
    image.pixels.assign(pixels, pixels + image.pixels.size());
    return image;
}

int Run(int argc, char** argv) {
    std::string picture;
    std::string page;
    bool update = false;
    CommandLine line("Compares a picture with the one on a page.", "compare");
    line.Option("PICTURE", picture, "", "What was drawn");
    line.Option("PAGE", page, "", "The PNG file on the page");
    line.Flag("--update", update, "Replace the file on the page");
    line.Require("PAGE");
    if (!line.Parse(argc, argv)) {
        return kExitDone;
    }
    if (update) {
        WritePng(page, ReadAny(picture));
    } else {
        ComparePicture(ReadAny(picture), page);
    }
    return kExitDone;
}

}  // namespace

int main(int argc, char** argv) {
    return RunTool("compare", [argc, argv] { return Run(argc, argv); });
}
