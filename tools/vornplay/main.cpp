#include <malloc.h>

#include <csignal>
#include <iostream>
#include <string_view>

#include "Interrupt.h"
#include "LogSink.h"
#include "Options.h"
#include "OutputGuard.h"
#include "Player.h"
#include "RunSummary.h"
#include "parts/Join.h"
#include "parts/PartRun.h"
#include "support/RunTool.h"
#include "window/WindowPlayer.h"

extern "C" {
#include <libavutil/log.h>
}

namespace {

/// For each frame the renderer discards a pixel buffer and gets a new one. A software GL allocates
/// it with malloc, which by default maps such large blocks each time and pays for it in page
/// faults. These settings take them from the heap, which keeps them.
void KeepLargeBlocks() {
    constexpr int kKept = 1 << 30;
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, kKept);
}

int Play(Options& options) {
    CatchInterrupts();  // With a window, SDL catches them.
    try {
        CheckReplaces(options);
        return options.part.has_value() ? PlayPart(options) : Player(options).Play();
    } catch (const std::exception& error) {
        if (options.json) {
            std::cout << FailureToJson(options.inputs, options.out, error.what()) << std::endl;
        }
        throw;
    }
}

constexpr char kShortHelp[] =
    "vornplay plays videos and pictures, with masks, stickers and a moving view.\n"
    "\n"
    "  vornplay clip.mp4                          in a window\n"
    "  vornplay clip.mp4 --mirror --out new.mp4   into a file\n"
    "  vornplay --help                            all options\n";

int Run(int argc, char** argv) {
    if (argc == 1 && HasDisplay()) {
        return WindowPlayer(Options()).Play();
    }
    if (argc == 1) {
        std::cout << kShortHelp;
        return kExitBadInput;
    }
    if (argc > 1 && std::string_view(argv[1]) == "--join") {
        return Join(argc, argv);
    }
    std::optional<Options> options = ParseOptions(argc, argv);
    if (!options.has_value()) {
        return kExitDone;
    }
    ShowLog(options->verbose);
    if (options->verbose) {
        av_log_set_level(AV_LOG_WARNING);
    }
    return options->WantsWindow() ? WindowPlayer(*options).Play() : Play(*options);
}

}  // namespace

int main(int argc, char** argv) {
    KeepLargeBlocks();
    // Writing beyond a limit on file sizes or to a closed pipe is then an error like others.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    return RunTool("vornplay", [argc, argv] { return Run(argc, argv); });
}
