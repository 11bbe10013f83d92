#include "window/WindowPlayer.h"

#include <SDL.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <utility>

#include "Handover.h"
#include "RunSummary.h"
#include "support/RunTool.h"
#include "support/ToolError.h"
#include "window/hud/Texts.h"

namespace {

constexpr Size kEmptyWindow = {640, 360};

std::string NameOf(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

std::string TitleOf(const Options& options) {
    return options.input.empty() ? "vornplay" : NameOf(options.input) + " - vornplay";
}

std::optional<VideoFile> FileOf(const Options& options) {
    if (options.input.empty()) {
        return std::nullopt;
    }
    return VideoFile(options.input, options.startSeconds);
}

Size PictureSize(const Options& options, const std::optional<VideoFile>& file) {
    if (!file.has_value()) {
        return kEmptyWindow;
    }
    return options.size.width > 0 ? options.size
                                  : file->Shape(options.autorotate)
                                        .Upright({file->Codec().width, file->Codec().height});
}

/// Fills the window as beside a picture.
void Clear(Size drawable) {
    constexpr float kDark = 24.0F / 255.0F;
    glViewport(0, 0, drawable.width, drawable.height);
    glClearColor(kDark, kDark, kDark, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
}

}  // namespace

bool HasDisplay() {
    return std::getenv("WAYLAND_DISPLAY") != nullptr || std::getenv("DISPLAY") != nullptr;
}

WindowPlayer::WindowPlayer(const Options& options)
    : WindowPlayer{options, PrepareJava(options), FileOf(options)} {}  // In this order.

WindowPlayer::WindowPlayer(const Options& options, std::future<void>&& java,
                           std::optional<VideoFile> file)
    : startup_("process and file"),
      java_(std::move(java)),
      session_(TitleOf(options), PictureSize(options, file)),
      options_(options) {
    startup_.Note("window");
    session_.hud.Say(kHelpHint);
    if (java_.valid()) {
        java_.wait();
        startup_.Note("rest of the JVM");
    }
    if (file.has_value()) {
        Start(options, std::move(*file));
        startup_.Note("picture");
        if (options.verbose) {
            std::cerr << "vornplay: " << startup_.Text() << '\n';
        }
    }
}

/// Begins to play a file.
void WindowPlayer::Start(const Options& options, VideoFile file) {
    session_.clip.reset();  // First: platforms have few decoders.
    session_.clip = std::make_unique<Clip>(options, std::move(file), session_.speaker);
    startup_.Note("clip");
    session_.window.SetTitle(TitleOf(options));
    session_.hud.ShowTimeLine();
    ShowNew(Clock::now());
    session_.clip->playback.Toggle();
}

/// Plays another file from its start. \return false if it cannot be played
bool WindowPlayer::Open(const std::string& input) {
    Options options = options_;
    options.input = input;
    options.startSeconds = 0.0;
    try {
        VideoFile file(options.input);
        Report();
        Start(options, std::move(file));
        return true;
    } catch (const ToolError& error) {
        session_.hud.Say("Cannot play " + NameOf(options.input));
        std::cerr << "vornplay: " << error.what() << '\n';
        return false;
    }
}

/// Plays the nearest input before or after this one that can be played. \return false for none
bool WindowPlayer::Turn(int by) {
    const auto count = static_cast<int>(options_.inputs.size());
    for (int place = place_ + by; place >= 0 && place < count; place += by) {
        if (Open(options_.inputs.at(static_cast<size_t>(place)))) {
            place_ = place;
            return true;
        }
        broken_ = true;
    }
    return false;
}

int WindowPlayer::Play() {
    bool changed = true;
    while (!session_.quits) {
        if (changed) {
            Refresh();
        }
        changed = HandleEvents();
        changed = (session_.clip != nullptr && Advance()) || changed;
        const auto next = session_.hud.NextChange();
        changed = changed || (next.has_value() && *next <= Clock::now());
    }
    Report();
    return broken_ ? kExitBroken : kExitDone;
}

/// Shows the next frame if it is due. \return whether something else changed
bool WindowPlayer::Advance() {
    const Clock::time_point now = Clock::now();
    Playback& playback = session_.clip->playback;
    session_.clip->sound.Feed();
    if (!playback.Playing() || playback.Due() > now) {
        return false;
    }
    if (playback.Advance()) {
        ShowNew(now);
    }
    if (!playback.AtEnd()) {
        return false;
    }
    if (!session_.clip->HasTime() || !Turn(1)) {  // A picture stays.
        session_.hud.Say(kAtEnd);
    }
    return true;
}

/// Waits for events until something else is due, and handles them.
/// \return whether there were any
bool WindowPlayer::HandleEvents() {
    SDL_Event event;
    if (SDL_WaitEventTimeout(&event, Patience()) == 0) {
        return false;
    }
    do {
        Handle(event);
    } while (SDL_PollEvent(&event) != 0);
    pointer_.Seek();
    if (session_.turn != 0) {
        Turn(std::exchange(session_.turn, 0));
    }
    return true;
}

void WindowPlayer::Handle(const SDL_Event& event) {
    if (event.type != SDL_MOUSEMOTION) {
        pointer_.Seek();  // Of many motions only the last one counts.
    }
    switch (event.type) {
        case SDL_QUIT: session_.quits = true; break;
        case SDL_KEYDOWN: keys_.Handle(event.key); break;
        case SDL_DROPFILE:
            Open(event.drop.file);
            SDL_free(event.drop.file);
            break;
        case SDL_WINDOWEVENT:
            if (event.window.event == SDL_WINDOWEVENT_LEAVE) {
                session_.hud.HideTimeLine();
            }
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
        case SDL_MOUSEMOTION:
        case SDL_MOUSEWHEEL: pointer_.Handle(event); break;
        default: break;
    }
}

/// Milliseconds until something is due without an event.
int WindowPlayer::Patience() const {
    constexpr std::chrono::milliseconds kLongest(1000);
    Clock::time_point next = Clock::now() + kLongest;
    if (session_.clip != nullptr && session_.clip->playback.Playing()) {
        next = std::min(next, session_.clip->playback.Due());
    }
    next = std::min(next, session_.hud.NextChange().value_or(next));
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
    return std::max(0, static_cast<int>(wait.count()));
}

/// \param asked when the frame was asked for
void WindowPlayer::ShowNew(Clock::time_point asked) {
    const Clock::duration drawing = Refresh();
    const Clock::time_point now = Clock::now();
    session_.clip->playback.Shown();
    session_.clip->figures.NoteShown(now, drawing, now - asked);
}

/// \return how long the renderer took
WindowPlayer::Clock::duration WindowPlayer::Refresh() {
    const Clock::time_point start = Clock::now();
    Clip* clip = session_.clip.get();
    const bool draws = clip != nullptr && !clip->playback.Waiting();
    if (draws) {
        clip->stage.Draw();
    }
    const Clock::duration drawing = Clock::now() - start;
    const Layout layout = session_.CurrentLayout();
    if (clip != nullptr) {
        pass_.Draw(clip->stage.Source().GetRenderer().TextureName(), layout);
    } else {
        Clear(layout.drawable);
    }
    if (clip == nullptr || picturesPresented_) {
        session_.hud.Draw(Content(), layout);
    }
    ShowPointer();
    session_.window.Present();
    picturesPresented_ = picturesPresented_ || clip != nullptr;
    return drawing;
}

HudContent WindowPlayer::Content() const {
    HudContent content;
    content.keys = KeyTexts();
    if (session_.clip == nullptr) {
        content.invitation = kDropHere;
        return content;
    }
    const Clip& clip = *session_.clip;
    const Playback& playback = clip.playback;
    if (clip.HasTime()) {
        content.state = {playback.Playing(),     playback.AtEnd(),      playback.Loops(),
                         playback.Seconds(),     playback.EndSeconds(), clip.sound.IsThere(),
                         session_.volume.Heard()};
    }
    content.figures = FigureTexts(clip);
    return content;
}

/// In full screen it is hidden while the user only looks.
void WindowPlayer::ShowPointer() const {
    const bool looks = session_.clip != nullptr && session_.clip->playback.Playing() &&
                       session_.window.IsFullScreen() && session_.hud.Rests();
    SDL_ShowCursor(looks ? SDL_DISABLE : SDL_ENABLE);
}

/// Says what became of the clip.
void WindowPlayer::Report() {
    if (session_.clip == nullptr) {
        return;
    }
    const Clip& clip = *session_.clip;
    const FrameSource& source = clip.stage.Source();
    if (!options_.quiet) {
        ReportRemarks(clip.options.input, source.Remarks());
    }
    broken_ = ReportBroken(clip.options.input, source.Lost(), source.Damaged()) || broken_;
    if (!options_.quiet) {
        std::cerr << clip.playback.FramesShown() << " frames shown, " << clip.playback.Dropped()
                  << " dropped, " << std::fixed << std::setprecision(2)
                  << source.GetRenderer().MillisecondsPerDraw() << " ms a draw\n";
    }
}
