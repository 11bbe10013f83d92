#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "support/Backdrop.h"

/// Where the camera of the picture stands, as VEUpdateUserPosition takes it.
struct View {
    float x = 0.0F;
    float y = 0.0F;
    float zoom = 2.0F;
    float w = 0.0F;
};

using Rgba = std::array<uint8_t, 4>;

/// The view at which the picture's edges meet the frame's.
View FitView();

/// The view at \p progress on the straight way between two; 0 is \p from, 1 is \p to.
View Between(const View& from, const View& to, double progress);

// Parsers of option values. All throw ToolError.

View ParseView(const std::string& text);                     ///< "X,Y,ZOOM,W"
Rgba ParseColor(const std::string& text);                    ///< "R,G,B,A", each 0 … 255
std::pair<int, int> ParsePosition(const std::string& text);  ///< "X,Y"
Backdrop ParseBackdrop(const std::string& text);             ///< "checker" or "#rrggbb"
