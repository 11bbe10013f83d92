#pragma once

#include "Options.h"
#include "Stage.h"
#include "window/Controls.h"
#include "window/Figures.h"
#include "window/GlWindow.h"
#include "window/Hud.h"
#include "window/Playback.h"
#include "window/PresentPass.h"

/// Plays the input in a window that the user controls.
class WindowPlayer {
public:
    /// \throws ToolError
    explicit WindowPlayer(const Options& options)
        : WindowPlayer(options, VideoFile(options.input, options.startSeconds)) {}

    /// Plays until the user quits. \return an ExitStatus
    int Play();

private:
    using Clock = Playback::Clock;

    WindowPlayer(const Options& options, VideoFile file);
    bool HandleEvents();
    int Patience() const;
    void ShowNew(Clock::time_point asked);
    Clock::duration Refresh();
    int Report();

    const Options& options_;
    GlWindow window_;
    PresentPass pass_;
    Hud hud_;
    Stage stage_;
    Playback playback_{stage_};
    Figures figures_;
    Controls controls_{window_, stage_, playback_, hud_};
};
