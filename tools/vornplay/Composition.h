#pragma once

#include <optional>
#include <vector>

#include "OptionValues.h"
#include "render/VEStickerList.h"

/// How one frame is drawn.
struct Shot {
    View view;
    bool mirror = false;
    VEStickerList stickers;
};

/// What changes at a time. What is not named goes on as it was.
struct Keyframe {
    double seconds = 0.0;
    std::optional<View> view;
    std::optional<bool> mirror;
    std::optional<VEStickerList> stickers;
};

/// The shot at a time, between keyframes in the order of their times. A view moves evenly from one
/// keyframe that names it to the next; so do stickers, where both have as many. Mirroring switches.
/// Before its first keyframe everything is as in a fresh Shot, after its last it stays.
Shot ShotAt(const std::vector<Keyframe>& keyframes, double seconds);
