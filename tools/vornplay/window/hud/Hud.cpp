#include "window/hud/Hud.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::chrono::seconds kLineTime(4);
constexpr std::chrono::milliseconds kBarTime(2500);
constexpr double kMargin = 8.0;

int Margin(const Layout& layout) {
    return static_cast<int>(kMargin * layout.UiScale());
}

}  // namespace

void Hud::Say(const std::string& line) {
    line_ = line;
    saysUntil_ = Clock::now() + kLineTime;
}

void Hud::ShowTimeLine() {
    showsBarUntil_ = Clock::now() + kBarTime;
}

std::optional<Hud::Clock::time_point> Hud::NextChange() const {
    const Clock::time_point now = Clock::now();
    std::optional<Clock::time_point> next;
    if (!line_.empty()) {
        next = saysUntil_;
    }
    if (barShows_ && showsBarUntil_ > now) {
        next = std::min(next.value_or(showsBarUntil_), showsBarUntil_);
    }
    return next;
}

/// Letters have the same size on every screen, but are smaller in a small window.
void Hud::SetFont(const Layout& layout) {
    constexpr Size kSmall = {480, 360};
    constexpr double kUsualPixels = 15.0;
    constexpr double kSmallPixels = 12.0;
    const bool small = layout.window.width < kSmall.width * layout.textScale ||
                       layout.window.height < kSmall.height * layout.textScale;
    const int pixels =
        static_cast<int>(std::lround((small ? kSmallPixels : kUsualPixels) * layout.UiScale()));
    if (!font_.has_value() || font_->Pixels() != pixels) {
        font_.emplace(pixels);
    }
}

void Hud::Draw(const HudContent& content, const Layout& layout) {
    if (saysUntil_ <= Clock::now()) {
        line_.clear();
    }
    SetFont(layout);
    PlaceBar(content.state, layout);
    if (!painter_.has_value()) {
        painter_.emplace();
    }
    painter_->Begin(layout.drawable);
    if (!content.invitation.empty()) {
        DrawCentered({{"", content.invitation}}, layout);
    }
    if (!DrawKeys(content.keys, layout)) {
        DrawLine(layout);
        DrawFigures(content.figures, layout);
    }
    if (barShows_) {
        bar_.Draw(*painter_);
    }
    Painter::End();
}

/// It stays while the clip stands.
void Hud::PlaceBar(const std::optional<PlayState>& state, const Layout& layout) {
    barShows_ = state.has_value() && (!state->playing || !Rests());
    if (barShows_) {
        bar_.Place(*font_, *state, layout);
        barShows_ = bar_.HasRoom();
    }
}

/// The first row of pixels below the room for text.
int Hud::Bottom(const Layout& layout) const {
    return barShows_ ? bar_.Bar().top : layout.drawable.height;
}

/// \return whether they show
bool Hud::DrawKeys(const TextRows& keys, const Layout& layout) {
    const int room = Bottom(layout) - 2 * Margin(layout) - TextPanel::Padding(*font_);
    const int perPage = std::max(2, room / font_->LineHeight());
    const int count = static_cast<int>(keys.size());
    // The last line of a page announces the next one.
    const bool fits = count <= perPage;
    const int step = fits ? count : perPage - 1;
    if (keysPage_ * step >= count + step) {
        keysPage_ = 0;
    }
    if (keysPage_ == 0) {
        return false;
    }
    const int begin = (keysPage_ - 1) * step;
    const int end = std::min(count, begin + step);
    TextRows page(keys.begin() + begin, keys.begin() + end);
    if (end < count) {
        page.push_back({"H", "more keys"});
    }
    DrawCentered(page, layout);
    return true;
}

void Hud::DrawCentered(const TextRows& rows, const Layout& layout) {
    centerPanel_.Set(*font_, rows, layout.drawable.width - 2 * Margin(layout));
    const Size size = centerPanel_.PanelSize();
    centerPanel_.DrawPanel(*painter_, (layout.drawable.width - size.width) / 2,
                           (Bottom(layout) - size.height) / 2);
}

void Hud::DrawLine(const Layout& layout) {
    if (line_.empty()) {
        return;
    }
    linePanel_.Set(*font_, {{"", line_}}, layout.drawable.width - 2 * Margin(layout));
    const int height = linePanel_.PanelSize().height;
    linePanel_.DrawPanel(*painter_, Margin(layout), Bottom(layout) - Margin(layout) - height);
}

/// Only if there is room above the line.
void Hud::DrawFigures(const TextRows& figures, const Layout& layout) {
    if (!showsFigures_) {
        return;
    }
    figuresPanel_.Set(*font_, figures, layout.drawable.width - 2 * Margin(layout));
    const int line = line_.empty() ? 0 : linePanel_.PanelSize().height + Margin(layout);
    if (figuresPanel_.PanelSize().height + 2 * Margin(layout) <= Bottom(layout) - line) {
        figuresPanel_.DrawPanel(*painter_, Margin(layout), Margin(layout));
    }
}
