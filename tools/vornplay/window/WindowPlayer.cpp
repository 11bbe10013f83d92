#include "window/WindowPlayer.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <utility>

#include "RunSummary.h"
#include "support/RunTool.h"
#include "window/Texts.h"

namespace {

std::string TitleOf(const Options& options) {
    return std::filesystem::path(options.input).filename().string() + " - vornplay";
}

Size PictureSize(const Options& options, const VideoFile& file) {
    return options.size.width > 0
               ? options.size
               : file.Shape(options.autorotate).Upright({file.Codec().width, file.Codec().height});
}

}  // namespace

WindowPlayer::WindowPlayer(const Options& options, VideoFile file)
    : options_(options),
      window_(TitleOf(options), PictureSize(options, file)),
      stage_(options, std::move(file)) {
    hud_.Say("H: keys");
}

int WindowPlayer::Play() {
    ShowNew(Clock::now());
    playback_.Toggle();
    while (!controls_.Quits()) {
        bool changed = HandleEvents();
        const Clock::time_point now = Clock::now();
        changed = changed || (hud_.SaysUntil().has_value() && *hud_.SaysUntil() <= now);
        if (playback_.Playing() && playback_.Due() <= now && playback_.Advance()) {
            ShowNew(now);
        } else if (changed) {
            Refresh();
        }
    }
    return Report();
}

/// Waits for events until something else is due, and handles them.
/// \return whether there were any
bool WindowPlayer::HandleEvents() {
    SDL_Event event;
    if (SDL_WaitEventTimeout(&event, Patience()) == 0) {
        return false;
    }
    do {
        controls_.Handle(event);
    } while (SDL_PollEvent(&event) != 0);
    return true;
}

/// Milliseconds until something is due without an event.
int WindowPlayer::Patience() const {
    constexpr std::chrono::milliseconds kLongest(1000);
    Clock::time_point next = Clock::now() + kLongest;
    if (playback_.Playing()) {
        next = std::min(next, playback_.Due());
    }
    if (hud_.SaysUntil().has_value()) {
        next = std::min(next, *hud_.SaysUntil());
    }
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
    return std::max(0, static_cast<int>(wait.count()));
}

/// \param asked when the frame was asked for
void WindowPlayer::ShowNew(Clock::time_point asked) {
    const Clock::duration drawing = Refresh();
    const Clock::time_point now = Clock::now();
    playback_.Shown();
    figures_.NoteShown(now, drawing, now - asked);
}

/// \return how long the renderer took
WindowPlayer::Clock::duration WindowPlayer::Refresh() {
    const Clock::time_point start = Clock::now();
    stage_.Draw();
    const Clock::duration drawing = Clock::now() - start;
    const Layout layout = window_.LayoutOf(stage_.FrameSize());
    pass_.Draw(stage_.Source().GetRenderer().TextureName(), layout);
    hud_.Draw(FigureTexts(figures_, playback_, stage_), KeyTexts(stage_), layout);
    window_.Present();
    return drawing;
}

int WindowPlayer::Report() {
    const FrameSource& source = stage_.Source();
    if (!options_.quiet) {
        ReportRemarks(options_.input, source.Remarks());
    }
    const bool broken = ReportBroken(options_.input, source.Lost(), source.Damaged());
    if (!options_.quiet) {
        std::cerr << playback_.FramesShown() << " frames shown, " << playback_.Dropped()
                  << " dropped, " << std::fixed << std::setprecision(2)
                  << source.GetRenderer().MillisecondsPerDraw() << " ms a draw\n";
    }
    return broken ? kExitBroken : kExitDone;
}
