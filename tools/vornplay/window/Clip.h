#pragma once

#include <utility>

#include "Options.h"
#include "Stage.h"
#include "window/Playback.h"
#include "window/hud/Figures.h"
#include "window/hud/TimeLine.h"
#include "window/sound/Sound.h"

/// A clip in the window: its pictures, its sound, and how it plays. Needs the window's GL context.
struct Clip {
    /// \param file the input of \p clipOptions. \throws ToolError
    Clip(Options clipOptions, VideoFile file, Speaker& speaker)
        : options(std::move(clipOptions)),
          stage(options, std::move(file)),
          sound(speaker, stage.Source().File()) {}

    /// A picture has no time line.
    bool HasTime() const { return stage.EndSeconds() > 0.0 || stage.Seconds() > 0.0; }

    const Options options;
    Stage stage;
    Sound sound;
    Playback playback{stage, sound};
    Figures figures;
};
