// Makes a mask of what moves before a camera that stands still.

#include <cstdint>
#include <string>

#include "Background.h"
#include "MotionDetector.h"
#include "support/CommandLine.h"
#include "support/FrameConverter.h"
#include "support/NumberedPath.h"
#include "support/PngFile.h"
#include "support/RunTool.h"
#include "support/VideoReader.h"

namespace {

struct Options {
    std::string input;
    std::string out;
    double startSeconds = 0.0;
    int frames = 0;
};

bool Parse(int argc, char** argv, Options& options) {
    CommandLine line("Writes masks of what moves in a video: white on black.", "motionmask");
    line.Option("INPUT", options.input, "", "A video from a camera that stands still");
    line.Option("--out", options.out, "FILE", "The masks to write, such as mask/%04d.png");
    line.Option("--start", options.startSeconds, NumberIn(0.0, 1e6), "SECONDS",
                "Begin at this time");
    line.Option("--frames", options.frames, WholeIn(1, 1'000'000'000), "N",
                "Write no more masks than this");
    line.Require("INPUT");
    line.Require("--out");
    return line.Parse(argc, argv);
}

void WriteMasks(const Options& options) {
    const NumberedPath path(options.out);
    VideoReader reader(options.input, options.startSeconds);
    const AVFrame* frame = &reader.First();
    const Size size = SizeOr({}, *frame);
    FrameConverter converter(size, AV_PIX_FMT_RGB24);
    MotionDetector detector(size, FindBackground(options.input));
    CreateDirectoryOf(path.At(1));
    for (int number = 1; frame != nullptr; ++number) {
        WriteGrayPng(path.At(number), size, detector.Detect(converter.Convert(*frame)).data());
        frame = number == options.frames ? nullptr : reader.Next();
    }
}

int Run(int argc, char** argv) {
    Options options;
    if (Parse(argc, argv, options)) {
        WriteMasks(options);
    }
    return kExitDone;
}

}  // namespace

int main(int argc, char** argv) {
    return RunTool("motionmask", [argc, argv] { return Run(argc, argv); });
}
