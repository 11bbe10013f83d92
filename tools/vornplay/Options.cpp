#include "Options.h"

#include <unistd.h>

#include <algorithm>

#include "OptionValues.h"
#include "OutputGuard.h"
#include "Version.h"
#include "export/Output.h"
#include "parts/PartOptions.h"
#include "support/CommandLine.h"
#include "support/ToolError.h"

namespace {

constexpr int64_t kMostFrames = 1'000'000'000;

constexpr char kPathNote[] =
    "By default, H.264 and Motion-JPEG video goes to the renderer compressed, and the platform "
    "decodes it. This needs a JVM ($JAVA_HOME, or the system's). Everything else goes as pixels, "
    "and so do frames of another --size; with --path decode these are scaled more simply.";

constexpr char kMaskNote[] =
    "With alpha, it keys the picture out where it is transparent. Without alpha, it does so where "
    "it is black, and elsewhere its brightness is the alpha; with --mask-format rgb nothing is "
    "half transparent. The mask is stretched over the picture. Its first frame goes with the first "
    "frame drawn, and its last frame is repeated.";

constexpr char kViewNote[] =
    "The picture is 2 wide and 2 high around 0,0. ZOOM 2 crops it by a factor of 1.15, 1.4 fits, "
    "less shows the clear color around it; from 5.8 on nothing shows. A positive X moves the "
    "picture to the left, a positive Y up. W has no effect.";

constexpr char kExamples[] =
    "  vornplay clip.mp4 --mirror --out clip-mirrored.mp4\n"
    "  vornplay clip.mp4 --out 'frames/%04d.png' --start 2.5 --frames 50\n"
    "  vornplay clip.mp4 --mask 'mask/%04d.png' --out keyed.mp4 --backdrop '#204060'\n"
    "  vornplay photo.png --sticker hat.png --at 320,200 --at 90,240 --out photo-hat.png\n"
    "  vornplay clip.mp4 --view 0,0,1.4,0 --view-to 0.5,0,4,0 --out zoom.mp4\n"
    "  vornplay clip.mp4 --script move.json --out clip.webm\n"
    "  vornplay morning.mp4 evening.mp4 --out day.mp4\n"
    "  producer | vornplay - --mirror --out - | consumer";

constexpr char kStatusNote[] =
    "  0    done\n"
    "  1    the input is broken, and was drawn as far as it decodes\n"
    "  2    nothing could be done, or the output could not be written\n"
    "  3    the clip cannot be cut into parts\n"
    "  130  stopped by Ctrl-C; the output has the frames so far";

void AddInputOptions(CommandLine& line, Options& options) {
    line.Group("What to play");
    line.Repeated(
        "INPUT", [&options](const std::string& text) { options.inputs.push_back(text); }, "",
        "A video, a picture, a sequence such as dir/%04d.png, a URL, or - for stdin; several "
        "play one after the other");
    line.Require("INPUT");
    line.Group("Input");
    line.Flag("--rgb", options.rgb, "Hand the frames over as RGB");
    line.Flag("--rgba", options.rgba, "Hand the frames over as RGBA (default)");
    line.Exclude("--rgba", "--rgb");
    line.Option("--size", options.size, ParseSize, "WxH",
                "Scale the frames to this size (default: the input's)");
    line.Flag(
        "--no-autorotate", [&options] { options.autorotate = false; },
        "Do not turn the frames upright");
    line.Flag("--keep-interlaced", options.keepInterlaced, "Do not deinterlace the frames");
    line.Option("--start", options.startSeconds, NumberIn(0.0, 1e6), "SECONDS",
                "Begin at this time of the first input");
    line.Option("--duration", options.durationSeconds, NumberIn(0.001, 1e6), "SECONDS",
                "Draw no more than this");
    line.Option("--frames", options.frames, WholeIn(1, kMostFrames), "N",
                "Draw no more frames than this");
}

void AddHandoverOptions(CommandLine& line, Options& options) {
    line.Group("Path");
    line.Choice(
        "--path",
        [&options](const std::string& text) {
            options.handover = text == "decode" ? Handover::kCompressed
                               : text == "cpu"  ? Handover::kPixels
                                                : Handover::kAuto;
        },
        {"decode", "cpu", "auto"}, "Hand over compressed frames or pixels (default: auto)");
    line.Flag("--realtime", options.realtime,
              "Keep the clip's pace, and count the frames shown and dropped");
    line.Option("--platform", options.platform, "DIR",
                "Where libandroid.so and android.jar are (default: those linked to)");
}

void AddMaskOptions(CommandLine& line, Options& options) {
    line.Group("Mask");
    line.Option("--mask", options.mask, "FILE",
                "Key the picture by this video, picture or sequence");
    line.Option("--mask-size", options.maskSize, ParseSize, "WxH",
                "Scale the mask to this size (default: its own)");
    line.Choice(
        "--mask-format", [&options](const std::string& text) { options.rgbMask = text == "rgb"; },
        {"rgb", "rgba"}, "Hand the mask over as this (default: rgba)");
    line.Need("--mask-size", "--mask");
    line.Need("--mask-format", "--mask");
}

void AddStickerOptions(CommandLine& line, Options& options) {
    line.Group("Stickers");
    line.Option("--sticker", options.sticker, "PNG", "Picture to lay over the frames");
    line.Repeated(
        "--at",
        [&options](const std::string& text) { options.positions.push_back(ParsePosition(text)); },
        "X,Y", "Stand a sticker above this pixel; may be given often");
    line.Need("--at", "--sticker");
}

void AddViewOptions(CommandLine& line, Options& options, std::string& script) {
    line.Group("View");
    line.Flag("--mirror", options.mirror, "Swap left and right (the mask stays as it is)");
    line.Option("--view", options.view, ParseView, "X,Y,ZOOM,W",
                "Look from here; 0,0,2,0 is the library's own start");
    line.Option("--view-to", options.viewTo, ParseView, "X,Y,ZOOM,W",
                "Move evenly to this view until the last frame");
    line.Flag(
        "--fit", [&options] { options.view = kFitView; },
        "Look so that the picture fills the frame exactly (default)");
    line.Exclude("--fit", "--view");
    line.Option("--clear", options.clear, ParseColor, "R,G,B,A",
                "Color around the picture (default: 0,0,0,255)");
    line.Option("--script", script, "JSON", "Change view, mirroring and stickers over time");
    for (const char* name : {"--mirror", "--view", "--view-to", "--fit", "--at"}) {
        line.Exclude("--script", name);
    }
}

void AddOutputOptions(CommandLine& line, Options& options) {
    Encoding& encoding = options.encoding;
    line.Group("Output");
    line.Option(
        "--out", options.out, "FILE",
        "Write to " + OutputExamples() + ", or to stdout by - (default: show it in a window)");
    line.Choice(
        "--format", [&options](const std::string& text) { options.format = text; }, OutputFormats(),
        "The kind of FILE, if its ending does not say (default of stdout: mkv)", "KIND");
    line.Choice(
        "--codec", [&encoding](const std::string& text) { encoding.codec = text; },
        {"h264", "h265", "vp9", "ffv1"}, "Codec of mp4 and mkv (default: h264)");
    line.Option("--crf", encoding.crf, WholeIn(0, 63), "N",
                "Quality of mp4, mkv and webm, 0 the best (default: 18)");
    line.Choice(
        "--preset", [&encoding](const std::string& text) { encoding.preset = text; },
        {"ultrafast", "superfast", "veryfast", "faster", "fast", "medium", "slow", "slower",
         "veryslow", "placebo"},
        "From ultrafast to placebo, of h264 and h265 (default: fast)", "NAME");
    line.Choice(
        "--audio",
        [&encoding](const std::string& text) {
            encoding.audio = text == "copy"  ? AudioWay::kCopy
                             : text == "aac" ? AudioWay::kAac
                                             : AudioWay::kNone;
        },
        {"copy", "aac", "none"},
        "Copy the audio, compress it again, or leave it out (default: copy)");
    line.Option("--backdrop", options.backdrop, ParseBackdrop, "checker|#rrggbb",
                "Behind transparent parts of output without alpha (default: checker)");
    line.Flag("--overwrite", options.overwrite, "Replace an output that exists already");
    line.Flag("--json", options.json, "Print the result as a line of JSON");
    line.Flag("--no-window", options.noWindow,
              "Without --out: draw all frames and report how long that took");
    line.Flag("-q,--quiet", options.quiet, "No progress and no summary");
    line.Flag("-v,--verbose", options.verbose, "Show the log of the renderer and the decoders");
    line.Version(VersionText);
    line.Need("--format", "--out");
    line.Exclude("--realtime", "--out");
}

void AddNotes(CommandLine& line) {
    line.Note("Kinds of output", OutputNotes() + "Alpha is not premultiplied.");
    line.Note("The path", kPathNote);
    line.Note("The mask", kMaskNote);
    line.Note("The view", kViewNote);
    line.Note("Examples", kExamples);
    line.Note("Exit status", kStatusNote);
}

void ReadScriptInto(Options& options, const std::string& path) {
    options.script = ReadScript(path, !options.sticker.empty());
    if (options.sticker.empty()) {
        options.sticker = options.script->sticker;
    }
}

/// \throws ToolError for what does not work with several inputs, or with pipes
void CheckInputs(const Options& options) {
    const bool reads = std::count(options.inputs.begin(), options.inputs.end(), "-") > 0;
    if (reads && options.inputs.size() > 1) {
        throw ToolError("-: stdin goes with no other input");
    }
    if (options.out == "-" && options.json) {
        throw ToolError("--json prints on stdout, where --out - writes the video");
    }
    if (options.out == "-" && isatty(STDOUT_FILENO) != 0) {
        throw ToolError("--out - is for a pipe or a file; stdout is a terminal");
    }
}

}  // namespace

std::optional<Options> ParseOptions(int argc, char** argv) {
    Options options;
    std::string script;
    CommandLine line("Plays a video through the renderer, into a window or a file.", "vornplay");
    AddInputOptions(line, options);
    AddHandoverOptions(line, options);
    AddMaskOptions(line, options);
    AddStickerOptions(line, options);
    AddViewOptions(line, options, script);
    AddOutputOptions(line, options);
    AddPartOptions(line, options);
    AddNotes(line);
    if (!line.Parse(argc, argv)) {
        return std::nullopt;
    }
    if (options.realtime && options.handover == Handover::kPixels) {
        throw ToolError("--realtime is for compressed frames, not for --path cpu");
    }
    CheckInputs(options);
    for (const std::string& input : options.inputs) {
        CheckIsNoInput(options.out, input, "input");
    }
    options.input = options.inputs.front();
    CheckIsNoInput(options.out, options.mask, "mask");
    CheckIsNoInput(options.out, script, "script");
    if (!script.empty()) {
        ReadScriptInto(options, script);
    }
    CheckIsNoInput(options.out, options.sticker, "sticker");
    options.given = OptionsOfPictures(line);
    return options;
}
