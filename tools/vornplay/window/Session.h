#pragma once

#include <memory>

#include "window/Clip.h"
#include "window/GlWindow.h"
#include "window/hud/Hud.h"

struct Volume {
    double level = 1.0;  ///< From silent to as loud as the clip is.
    bool mute = false;

    double Heard() const { return mute ? 0.0 : level; }
};

/// The window, and what is in it.
struct Session {
    explicit Session(const std::string& title, Size picture) : window(title, picture) {}

    Size FrameSize() const { return clip != nullptr ? clip->stage.FrameSize() : Size{1, 1}; }
    Layout CurrentLayout() const { return window.LayoutOf(FrameSize()); }

    GlWindow window;
    Hud hud;
    Speaker speaker;
    Volume volume;
    std::unique_ptr<Clip> clip;  ///< Null until there is one.
    int turn = 0;                ///< How many inputs on the user wants to be.
    bool quits = false;
};
