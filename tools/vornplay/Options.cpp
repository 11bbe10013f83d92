#include "Options.h"

#include <map>
#include <memory>
#include <vector>

#include "OptionValues.h"
#include "export/Output.h"
#include "support/CommandLine.h"
#include "support/ToolError.h"

namespace {

constexpr int64_t kMostFrames = 1'000'000'000;

constexpr char kNotes[] =
    "Alpha is not premultiplied. Audio is copied as it is.\n"
    "\n"
    "Path: by default, H.264 and Motion-JPEG video is handed over compressed and decoded by the\n"
    "platform, which a Java machine belongs to ($JAVA_HOME, or the system's); anything\n"
    "else, and frames of another --size, as pixels. Other sizes with --path decode are scaled\n"
    "simply.\n"
    "\n"
    "Mask: a picture with alpha keys out where it is transparent; one without where it is black,\n"
    "and its brightness is the alpha elsewhere (not with --mask-format rgb, which knows no half\n"
    "transparency). It is stretched over the picture. Its first frame goes with the first frame\n"
    "drawn, and its last one is held.\n"
    "\n"
    "View: the picture is 2 wide and 2 high around 0,0. ZOOM 2 crops it by 1.15, 1.4 fits, less\n"
    "shows the clear color around it, 6 nothing. Y and W have no effect. Without --mask, a view\n"
    "makes the result opaque.\n"
    "\n"
    "Examples:\n"
    "  vornplay clip.mp4 --out clip-drawn.mp4 --fit\n"
    "  vornplay clip.mp4 --out 'frames/%04d.png' --start 2.5 --frames 50\n"
    "  vornplay clip.mp4 --mask 'mask/%04d.png' --out keyed.mp4 --backdrop '#204060'\n"
    "  vornplay photo.png --sticker hat.png --at 320,200 --at 90,240 --out photo-hat.png\n"
    "  vornplay clip.mp4 --view 0,0,1.4,0 --view-to 0.5,0,4,0 --out zoom.mp4\n"
    "  vornplay clip.mp4 --script move.json --out clip.webm\n"
    "\n"
    "Ctrl-C finishes the output with the frames so far.\n"
    "\n"
    "Exit status: 0 done, 1 the input is broken and was drawn as far as it decodes,\n"
    "2 nothing could be done, 130 stopped by Ctrl-C.";

/// \p parse, with the option's name in front of what it reports.
template <typename Parse>
auto ParseFor(const std::string& name, Parse parse, const std::string& text) {
    try {
        return parse(text);
    } catch (const ToolError& error) {
        throw ToolError(name + ": " + error.what());
    }
}

/// An option whose text \p parse turns into \p value.
template <typename Value, typename Parse>
CLI::Option* AddParsed(CLI::App& app, const std::string& name, Value& value, Parse parse,
                       const std::string& form, const std::string& help) {
    const auto set = [&value, name, parse](const std::string& text) {
        value = ParseFor(name, parse, text);
    };
    return app.add_option_function<std::string>(name, set, help)->type_name(form);
}

void AddInputOptions(CLI::App& app, Options& options) {
    app.add_option("INPUT", options.input, "A video, a picture or a sequence such as dir/%04d.png")
        ->type_name("")
        ->required();
    auto* rgb = app.add_flag("--rgb", options.rgb, "Hand the frames over as RGB");
    app.add_flag("--rgba", options.rgba, "Hand the frames over as RGBA (default)")
        ->excludes(rgb)
        ->group("Input");
    AddParsed(app, "--size", options.size, ParseSize, "WxH",
              "Scale the frames to this size (default: the input's)");
    app.add_option("--start", options.startSeconds, "Begin at this time")
        ->type_name("SECONDS")
        ->check(InRange(0.0, 1e6));
    app.add_option("--frames", options.frames, "Draw no more frames than this")
        ->type_name("N")
        ->check(InRange(int64_t{1}, kMostFrames));
    for (const char* name : {"--rgb", "--size", "--start", "--frames"}) {
        app.get_option(name)->group("Input");
    }
}

Handover ParseHandover(const std::string& text) {
    static const std::map<std::string, Handover> kNames = {
        {"auto", Handover::kAuto}, {"decode", Handover::kCompressed}, {"cpu", Handover::kPixels}};
    const auto found = kNames.find(text);
    if (found == kNames.end()) {
        throw ToolError(text + " is none of decode, cpu and auto");
    }
    return found->second;
}

void AddHandoverOptions(CLI::App& app, Options& options) {
    AddParsed(app, "--path", options.handover, ParseHandover, "decode|cpu|auto",
              "Hand over compressed frames or pixels (default: auto)");
    app.add_flag("--realtime", options.realtime,
                 "Keep the clip's pace, and tell how many frames were shown and dropped");
    app.add_option("--platform", options.platform,
                   "Where libandroid.so and android.jar are (default: those linked to)")
        ->type_name("DIR");
    for (const char* name : {"--path", "--realtime", "--platform"}) {
        app.get_option(name)->group("Path");
    }
}

void AddMaskOptions(CLI::App& app, Options& options) {
    auto* mask =
        app.add_option("--mask", options.mask, "Key the picture by this video, picture or sequence")
            ->type_name("FILE");
    AddParsed(app, "--mask-size", options.maskSize, ParseSize, "WxH",
              "Scale the mask to this size (default: its own)")
        ->needs(mask);
    AddParsed(
        app, "--mask-format", options.rgbMask,
        [](const std::string& text) {
            if (text != "rgb" && text != "rgba") {
                throw ToolError(text + " is neither rgb nor rgba");
            }
            return text == "rgb";
        },
        "rgb|rgba", "Hand the mask over as this (default: rgba)")
        ->needs(mask);
    for (const char* name : {"--mask", "--mask-size", "--mask-format"}) {
        app.get_option(name)->group("Mask");
    }
}

void AddStickerOptions(CLI::App& app, Options& options) {
    auto* sticker = app.add_option("--sticker", options.sticker, "Picture to lay over the frames")
                        ->type_name("PNG");
    auto* at = app.add_option_function<std::vector<std::string>>(
        "--at",
        [&options](const std::vector<std::string>& texts) {
            for (const std::string& text : texts) {
                options.positions.push_back(ParseFor("--at", ParsePosition, text));
            }
        },
        "Stand a sticker above this pixel; may be given often");
    at->type_name("X,Y")->type_size(1)->allow_extra_args(false)->needs(sticker);
    for (const char* name : {"--sticker", "--at"}) {
        app.get_option(name)->group("Stickers");
    }
}

void AddViewOptions(CLI::App& app, Options& options) {
    app.add_flag("--mirror", options.mirror, "Swap left and right (the mask stays as it is)");
    auto* view = AddParsed(app, "--view", options.view, ParseView, "X,Y,ZOOM,W",
                           "Look from here (default: 0,0,2,0)");
    AddParsed(app, "--view-to", options.viewTo, ParseView, "X,Y,ZOOM,W",
              "Move evenly to this view until the last frame");
    app.add_flag_callback(
           "--fit", [&options] { options.view = FitView(); },
           "Look so that the picture fills the frame exactly")
        ->excludes(view);
    AddParsed(app, "--clear", options.clear, ParseColor, "R,G,B,A",
              "Color around the picture (default: 0,0,0,255)");
    for (const char* name : {"--mirror", "--view", "--view-to", "--fit", "--clear"}) {
        app.get_option(name)->group("View");
    }
}

void AddScriptOption(CLI::App& app, std::string& path) {
    auto* script = app.add_option("--script", path, "Change view, mirroring and stickers over time")
                       ->type_name("JSON")
                       ->group("View");
    for (const char* name : {"--mirror", "--view", "--view-to", "--fit", "--at"}) {
        script->excludes(app.get_option(name));
    }
}

void ReadScriptInto(Options& options, const std::string& path) {
    options.script = ReadScript(path, !options.sticker.empty());
    if (options.sticker.empty()) {
        options.sticker = options.script->sticker;
    }
}

void AddOutputOptions(CLI::App& app, Options& options) {
    app.add_option("--out", options.out,
                   "Write to " + OutputExamples() + " (default: show it in a window)")
        ->type_name("FILE");
    AddParsed(app, "--backdrop", options.backdrop, ParseBackdrop, "checker|#rrggbb",
              "Behind transparent parts in mp4 and mkv (default: checker)");
    app.add_flag("--json", options.json, "Print what became of it as a line of JSON");
    app.add_flag("--no-window", options.noWindow,
                 "Without --out: draw all frames and tell how long that took");
    app.add_flag("--quiet,-q", options.quiet, "No progress and no summary");
    app.add_flag("-v,--verbose", options.verbose, "Show the log of the renderer and the decoders");
    for (const char* name :
         {"--out", "--backdrop", "--no-window", "--json", "--quiet", "--verbose"}) {
        app.get_option(name)->group("Output");
    }
}

}  // namespace

std::optional<Options> ParseOptions(int argc, char** argv) {
    Options options;
    CLI::App app("Plays a video through the renderer, into a window or a file.", "vornplay");
    app.formatter(std::make_shared<PlainHelp>());
    app.footer("Output:\n" + OutputNotes() + kNotes);
    AddInputOptions(app, options);
    AddHandoverOptions(app, options);
    AddMaskOptions(app, options);
    AddStickerOptions(app, options);
    AddViewOptions(app, options);
    AddOutputOptions(app, options);
    std::string script;
    AddScriptOption(app, script);
    app.get_option("--realtime")->excludes(app.get_option("--out"));
    if (!ParseCommandLine(app, argc, argv)) {
        return std::nullopt;
    }
    if (options.realtime && options.handover == Handover::kPixels) {
        throw ToolError("--realtime is for compressed frames, not for --path cpu");
    }
    if (!script.empty()) {
        ReadScriptInto(options, script);
    }
    return options;
}
