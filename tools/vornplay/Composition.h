#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "render/VERendererExt.h"
#include "render/VEStickerList.h"

using Rgba = std::array<uint8_t, 4>;

/// The view when none is asked for: the picture fills the frame exactly.
inline constexpr VEView kFitView = {0.0F, 0.0F, VE_ZOOM_FIT};

/// The largest zoom that options and scripts may ask for: from 5.8 on nothing shows.
inline constexpr double kNearestZoom = 5.79;

/// The view at \p progress on the straight line between two; 0 is \p from, 1 is \p to.
VEView Between(const VEView& from, const VEView& to, double progress);

/// How one frame is drawn.
struct Shot {
    VEView view = kFitView;
    bool mirror = false;
    bool hidesMask = false;
    VEStickerList stickers;
};

/// What changes at a time. What has no value stays as it was.
struct Keyframe {
    double seconds = 0.0;
    std::optional<VEView> view;
    std::optional<bool> mirror;
    std::optional<VEStickerList> stickers;
};

/// The shot at a time. \param keyframes in the order of their times
///
/// A view moves evenly from one keyframe that has a view to the next one. So do stickers, if both
/// keyframes have the same number of them. Mirroring switches. Before its first keyframe each
/// property is as in a default Shot; after its last it stays.
Shot ShotAt(const std::vector<Keyframe>& keyframes, double seconds);
