#include "Composition.h"

#include <cmath>

namespace {

/// The keyframes around a time that have a value for one property.
template <typename Value>
struct Span {
    const Value* from = nullptr;  ///< Null before the first one.
    const Value* to = nullptr;    ///< Null after the last one.
    double progress = 0.0;
};

template <typename Value>
Span<Value> Around(const std::vector<Keyframe>& keyframes, double seconds,
                   std::optional<Value> Keyframe::*property) {
    Span<Value> span;
    double begin = 0.0;
    for (const Keyframe& keyframe : keyframes) {
        const std::optional<Value>& value = keyframe.*property;
        if (!value.has_value()) {
            continue;
        }
        if (keyframe.seconds > seconds) {
            span.to = &*value;
            span.progress = (seconds - begin) / (keyframe.seconds - begin);
            break;
        }
        span.from = &*value;
        begin = keyframe.seconds;
    }
    return span;
}

int Between(int from, int to, double progress) {
    return static_cast<int>(std::lround(from + (to - from) * progress));
}

VEStickerList StickersOf(const Span<VEStickerList>& span) {
    VEStickerList stickers = *span.from;
    if (span.to != nullptr && span.to->size() == stickers.size()) {
        for (size_t i = 0; i < stickers.size(); ++i) {
            const auto& [x, y] = (*span.to)[i];
            stickers[i] = {Between(stickers[i].first, x, span.progress),
                           Between(stickers[i].second, y, span.progress)};
        }
    }
    return stickers;
}

}  // namespace

VEView Between(const VEView& from, const VEView& to, double progress) {
    const auto between = [t = static_cast<float>(progress)](float a, float b) {
        return a * (1.0F - t) + b * t;
    };
    return {between(from.x, to.x), between(from.y, to.y), between(from.zoom, to.zoom)};
}

Shot ShotAt(const std::vector<Keyframe>& keyframes, double seconds) {
    constexpr double kTimeTolerance = 1e-6;
    const double time = seconds + kTimeTolerance;
    Shot shot;
    if (const auto span = Around(keyframes, time, &Keyframe::view); span.from != nullptr) {
        shot.view = span.to != nullptr ? Between(*span.from, *span.to, span.progress) : *span.from;
    }
    if (const auto span = Around(keyframes, time, &Keyframe::mirror); span.from != nullptr) {
        shot.mirror = *span.from;
    }
    if (const auto span = Around(keyframes, time, &Keyframe::stickers); span.from != nullptr) {
        shot.stickers = StickersOf(span);
    }
    return shot;
}
