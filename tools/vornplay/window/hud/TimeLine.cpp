#include "window/hud/TimeLine.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace {

constexpr Color kWhite = {1.0F, 1.0F, 1.0F, 1.0F};
constexpr Color kRail = {1.0F, 1.0F, 1.0F, 0.28F};
constexpr Color kDone = {0.36F, 0.69F, 1.0F, 1.0F};

bool Holds(const Area& area, const Point& place) {
    return place.x >= area.left && place.x < area.left + area.width && place.y >= area.top &&
           place.y < area.top + area.height;
}

Area Around(const Point& middle, double width, double height) {
    return {static_cast<int>(std::lround(middle.x - width / 2.0)),
            static_cast<int>(std::lround(middle.y - height / 2.0)),
            static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height))};
}

Point Middle(const Area& area) {
    return {area.left + area.width / 2.0, area.top + area.height / 2.0};
}

}  // namespace

std::string TimeText(double seconds, int decimals) {
    constexpr int64_t kMinute = 60;
    constexpr int64_t kHour = 3600;
    const double rounding = decimals > 0 ? 0.0005 : 0.0;
    const double shown = std::max(0.0, seconds) + rounding;
    const auto whole = static_cast<int64_t>(shown);
    std::ostringstream text;
    text << std::setfill('0');
    if (whole >= kHour) {
        text << whole / kHour << ':' << std::setw(2);
    }
    text << whole / kMinute % kMinute << ':' << std::setw(2) << whole % kMinute;
    if (decimals > 0) {
        text << '.' << std::setw(3)
             << static_cast<int>((shown - static_cast<double>(whole)) * 1000.0);
    }
    return text.str();
}

void TimeLine::Place(Font& font, const PlayState& state, const Layout& layout) {
    constexpr double kLeastWidth = 200.0;
    constexpr double kLeastHeight = 100.0;
    constexpr double kMargin = 8.0;
    constexpr double kHeight = 36.0;
    constexpr double kIcon = 36.0;
    state_ = state;
    unit_ = layout.UiScale();
    bar_ = {};
    if (layout.drawable.width < kLeastWidth * unit_ ||
        layout.drawable.height < kLeastHeight * unit_) {
        return;
    }
    const int margin = static_cast<int>(kMargin * unit_);
    const int height = static_cast<int>(kHeight * unit_);
    const int icon = static_cast<int>(kIcon * unit_);
    bar_ = {margin, layout.drawable.height - margin - height, layout.drawable.width - 2 * margin,
            height};
    play_ = {bar_.left, bar_.top, icon, height};
    sound_ = {bar_.left + bar_.width - icon, bar_.top, state.hasSound ? icon : 0, height};
    PlaceTexts(font);
}

/// The times, and the track between them.
void TimeLine::PlaceTexts(Font& font) {
    const int gap = font.Pixels();
    const bool known = state_.endSeconds > 0.0;
    const std::string total = known ? TimeText(state_.endSeconds) : "";
    elapsed_.Set(font, {{"", TimeText(state_.seconds)}}, bar_.width);
    total_.Set(font, {{state_.loops ? "Loop" : "", total}}, bar_.width);
    const double top = bar_.top + (bar_.height - font.LineHeight()) / 2.0;
    const int right = state_.hasSound ? sound_.left : bar_.left + bar_.width - gap;
    elapsedAt_ = {static_cast<double>(play_.left + play_.width), top};
    totalAt_ = {static_cast<double>(right - total_.TextSize().width), top};
    const int left =
        static_cast<int>(elapsedAt_.x) + std::max(font.Width(total), elapsed_.TextSize().width);
    const int width = static_cast<int>(totalAt_.x) - left - 2 * gap;
    track_ = {left + gap, bar_.top, known ? std::max(0, width) : 0, bar_.height};
}

TimeLine::Part TimeLine::At(const Point& place) const {
    const int reach = static_cast<int>(8 * unit_);
    const Area track = {track_.left - reach, track_.top, track_.width + 2 * reach, track_.height};
    if (Holds(play_, place) && HasRoom()) {
        return Part::kPlay;
    }
    if (Holds(sound_, place) && HasRoom()) {
        return Part::kSound;
    }
    if (track_.width > 0 && Holds(track, place) && HasRoom()) {
        return Part::kTrack;
    }
    return Holds(bar_, place) ? Part::kBar : Part::kNone;
}

double TimeLine::SecondsAt(double x) const {
    const double part = (x - track_.left) / std::max(1, track_.width);
    return std::clamp(part, 0.0, 1.0) * state_.endSeconds;
}

void TimeLine::Draw(const Painter& painter) const {
    constexpr double kRadius = 10.0;
    painter.RoundRect(bar_, kRadius * unit_, kGround);
    DrawPlay(painter);
    elapsed_.DrawText(painter, static_cast<int>(elapsedAt_.x), static_cast<int>(elapsedAt_.y));
    total_.DrawText(painter, static_cast<int>(totalAt_.x), static_cast<int>(totalAt_.y));
    if (track_.width > 0) {
        DrawTrack(painter);
    }
    if (sound_.width > 0) {
        DrawSound(painter);
    }
}

/// What a click does: two bars pause, a triangle plays.
void TimeLine::DrawPlay(const Painter& painter) const {
    const Point middle = Middle(play_);
    const double half = 6.5 * unit_;
    if (state_.playing) {
        for (const double side : {-1.0, 1.0}) {
            const Point bar = {middle.x + side * 3.5 * unit_, middle.y};
            painter.RoundRect(Around(bar, 4.0 * unit_, 2.0 * half), unit_, kWhite);
        }
        return;
    }
    const Point tip = {middle.x + half, middle.y};
    painter.Quad({Point{middle.x - half + unit_, middle.y - half}, tip, tip,
                  Point{middle.x - half + unit_, middle.y + half}},
                 kWhite);
}

/// A mark stands at the end of the track once the end is reached.
void TimeLine::DrawTrack(const Painter& painter) const {
    const Point middle = Middle(track_);
    const double part = std::clamp(state_.seconds / state_.endSeconds, 0.0, 1.0);
    Area rail = Around(middle, track_.width, 4.0 * unit_);
    painter.RoundRect(rail, 2.0 * unit_, kRail);
    const double place = state_.atEnd ? track_.width : part * track_.width;
    rail.width = static_cast<int>(std::lround(place));
    if (rail.width > 0) {
        painter.RoundRect(rail, 2.0 * unit_, kDone);
    }
    const Point at = {track_.left + place, middle.y};
    const double thickness = state_.atEnd ? 4.0 * unit_ : 13.0 * unit_;
    painter.RoundRect(Around(at, thickness, (state_.atEnd ? 18.0 : 13.0) * unit_), thickness / 2.0,
                      kWhite);
}

/// A loudspeaker with as many waves as it is loud, or crossed out.
void TimeLine::DrawSound(const Painter& painter) const {
    const Point middle = Middle(sound_);
    const auto at = [&](double x, double y) {
        return Point{middle.x + x * unit_, middle.y + y * unit_};
    };
    painter.Quad({at(-9, -2.5), at(-5, -2.5), at(-5, 2.5), at(-9, 2.5)}, kWhite);
    painter.Quad({at(-5.2, -2.5), at(-1, -6.5), at(-1, 6.5), at(-5.2, 2.5)}, kWhite);
    if (state_.volume <= 0.0) {
        painter.Quad({at(2, -4.2), at(3.2, -5.4), at(9.6, 3), at(8.4, 4.2)}, kWhite);
        painter.Quad({at(8.4, -5.4), at(9.6, -4.2), at(3.2, 4.2), at(2, 3)}, kWhite);
        return;
    }
    constexpr int kWaves = 3;
    for (int wave = 0; wave < kWaves; ++wave) {
        const bool heard = state_.volume * kWaves > wave + 0.01;
        painter.RoundRect(Around(at(2.5 + 3.2 * wave, 0), 2.0 * unit_, (5 + 4 * wave) * unit_),
                          unit_, heard ? kWhite : kRail);
    }
}
