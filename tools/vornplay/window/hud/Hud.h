#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "window/hud/TimeLine.h"

/// What may be shown over the picture.
struct HudContent {
    std::optional<PlayState> state;  ///< None: no time line.
    TextRows figures;
    TextRows keys;
    std::string invitation;  ///< In the middle, if there is no picture.
};

/// Text and the time line over the window: the figures, the keys, and a line that goes away.
class Hud {
public:
    using Clock = std::chrono::steady_clock;

    void ToggleFigures() { showsFigures_ = !showsFigures_; }
    /// Shows the keys, then those that did not fit, then none.
    void TurnKeys() { ++keysPage_; }

    /// Writes a line for some seconds.
    void Say(const std::string& line);
    /// Shows the time line for some seconds.
    void ShowTimeLine();
    void HideTimeLine() { showsBarUntil_ = {}; }
    /// Whether the user did nothing for a while.
    bool Rests() const { return showsBarUntil_ <= Clock::now(); }
    /// When something goes away by itself; none if nothing does.
    std::optional<Clock::time_point> NextChange() const;

    /// The time line, if it shows.
    const TimeLine* Bar() const { return barShows_ ? &bar_ : nullptr; }

    /// Draws what is switched on into the default framebuffer.
    void Draw(const HudContent& content, const Layout& layout);

private:
    void SetFont(const Layout& layout);
    void PlaceBar(const std::optional<PlayState>& state, const Layout& layout);
    bool DrawKeys(const TextRows& keys, const Layout& layout);
    void DrawFigures(const TextRows& figures, const Layout& layout);
    void DrawLine(const Layout& layout);
    void DrawCentered(const TextRows& rows, const Layout& layout);
    int Bottom(const Layout& layout) const;

    std::optional<Painter> painter_;  ///< Made when it is needed: it has shaders to compile.
    std::optional<Font> font_;
    TimeLine bar_;
    TextPanel figuresPanel_;
    TextPanel centerPanel_;
    TextPanel linePanel_;
    bool showsFigures_ = false;
    int keysPage_ = 0;  ///< 0: none.
    bool barShows_ = false;
    std::string line_;
    Clock::time_point saysUntil_;
    Clock::time_point showsBarUntil_;
};
