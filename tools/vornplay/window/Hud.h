#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "window/TextPanel.h"

/// Text over the window: the figures, the keys, and a line at the bottom that goes away.
class Hud {
public:
    using Clock = std::chrono::steady_clock;

    void ToggleFigures() { showsFigures_ = !showsFigures_; }
    void ToggleKeys() { showsKeys_ = !showsKeys_; }

    /// Writes a line for some seconds.
    void Say(const std::string& line);
    /// When the line goes away; none if there is no line.
    std::optional<Clock::time_point> SaysUntil() const { return until_; }

    /// Draws what is switched on into the default framebuffer.
    void Draw(const TextLines& figures, const TextLines& keys, const Layout& layout);

private:
    TextProgram program_;
    TextPanel figuresPanel_;
    TextPanel keysPanel_;
    TextPanel linePanel_;
    bool showsFigures_ = false;
    bool showsKeys_ = false;
    std::string line_;
    std::optional<Clock::time_point> until_;
};
