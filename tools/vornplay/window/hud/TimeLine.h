#pragma once

#include "window/hud/TextPanel.h"

/// What the time line shows.
struct PlayState {
    bool playing = false;
    bool atEnd = false;
    bool loops = false;
    double seconds = 0.0;
    double endSeconds = 0.0;  ///< Zero: not known.
    bool hasSound = false;
    double volume = 1.0;  ///< Zero: mute.
};

/// "1:02:03", or "2:03" below an hour. \param decimals of the seconds, 0 or 3
std::string TimeText(double seconds, int decimals = 0);

/// The bar at the bottom: play, time, sound.
class TimeLine {
public:
    enum class Part { kNone, kBar, kPlay, kTrack, kSound };

    /// Puts the parts in their places. A small window has no room for them.
    void Place(Font& font, const PlayState& state, const Layout& layout);
    bool HasRoom() const { return bar_.width > 0; }
    const Area& Bar() const { return bar_; }

    /// \param place in pixels of the window
    Part At(const Point& place) const;
    /// The time on the track at or nearest to a place. \param x in pixels of the window
    double SecondsAt(double x) const;

    void Draw(const Painter& painter) const;

private:
    void PlaceTexts(Font& font);
    void DrawPlay(const Painter& painter) const;
    void DrawTrack(const Painter& painter) const;
    void DrawSound(const Painter& painter) const;

    PlayState state_;
    double unit_ = 1.0;  ///< Pixels per unit of the pointer.
    Area bar_;
    Area play_;
    Area track_;
    Area sound_;
    Point elapsedAt_;
    Point totalAt_;
    TextPanel elapsed_;
    TextPanel total_;
};
