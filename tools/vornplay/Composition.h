#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "render/VEStickerList.h"

using Rgba = std::array<uint8_t, 4>;

/// Where the camera stands, as VEUpdateUserPosition takes it.
struct View {
    float x = 0.0F;
    float y = 0.0F;
    float zoom = 2.0F;
    float w = 0.0F;
};

/// The view in which the picture fills the frame exactly.
View FitView();

/// The view at \p progress on the straight line between two; 0 is \p from, 1 is \p to.
View Between(const View& from, const View& to, double progress);

/// How one frame is drawn.
struct Shot {
    View view;
    bool mirror = false;
    VEStickerList stickers;
};

/// What changes at a time. What has no value stays as it was.
struct Keyframe {
    double seconds = 0.0;
    std::optional<View> view;
    std::optional<bool> mirror;
    std::optional<VEStickerList> stickers;
};

/// The shot at a time. \param keyframes in the order of their times
///
/// A view moves evenly from one keyframe that has a view to the next one. So do stickers, if both
/// keyframes have the same number of them. Mirroring switches. Before its first keyframe each
/// property is as in a default Shot; after its last it stays.
Shot ShotAt(const std::vector<Keyframe>& keyframes, double seconds);
