#include "window/Hud.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::chrono::seconds kLineTime(4);
constexpr int kScale = 2;

/// Letters have the same size on every screen, but are smaller in a small window.
void SetIn(TextPanel& panel, const TextLines& lines, const Layout& layout) {
    const int wanted = static_cast<int>(std::lround(kScale * layout.Density()));
    panel.Set(lines, FittingScale(lines, wanted, layout.drawable));
}

}  // namespace

void Hud::Say(const std::string& line) {
    line_ = line;
    until_ = Clock::now() + kLineTime;
}

void Hud::Draw(const TextLines& figures, const TextLines& keys, const Layout& layout) {
    const Size room = layout.drawable;
    if (showsFigures_) {
        SetIn(figuresPanel_, figures, layout);
        figuresPanel_.Draw(program_, 0, 0, room.height);
    }
    if (showsKeys_) {
        SetIn(keysPanel_, keys, layout);
        const Size size = keysPanel_.PanelSize();
        keysPanel_.Draw(program_, std::max(0, room.width - size.width) / 2,
                        std::max(0, room.height - size.height) / 2, room.height);
    }
    if (until_.has_value() && *until_ <= Clock::now()) {
        until_.reset();
    }
    if (until_.has_value()) {
        SetIn(linePanel_, {line_}, layout);
        linePanel_.Draw(program_, 0, room.height - linePanel_.PanelSize().height, room.height);
    }
}
