#pragma once

#include <future>
#include <optional>

#include "Options.h"
#include "window/Keys.h"
#include "window/Pointer.h"
#include "window/PresentPass.h"
#include "window/Session.h"
#include "window/Startup.h"

/// Plays the input in a window that the user controls.
class WindowPlayer {
public:
    /// \param options without an input, the window waits for a file to be dropped onto it
    /// \throws ToolError
    explicit WindowPlayer(const Options& options);

    /// Plays until the user quits. \return an ExitStatus
    int Play();

private:
    using Clock = Playback::Clock;

    WindowPlayer(const Options& options, std::future<void>&& java, std::optional<VideoFile> file);
    void Start(const Options& options, VideoFile file);
    bool Open(const std::string& input);
    bool Turn(int by);
    bool HandleEvents();
    void Handle(const SDL_Event& event);
    bool Advance();
    int Patience() const;
    void ShowNew(Clock::time_point asked);
    Clock::duration Refresh();
    HudContent Content() const;
    void ShowPointer() const;
    void Report();

    Startup startup_;
    std::future<void> java_;  ///< Starts while file and window open.
    Session session_;
    PresentPass pass_;
    Keys keys_{session_};
    Pointer pointer_{session_, keys_};
    Options options_;
    int place_ = 0;                   ///< Of the input in the list of them.
    bool picturesPresented_ = false;  ///< The first one does not wait for texts over it.
    bool broken_ = false;
};

/// Whether there is a display to open a window on.
bool HasDisplay();
