#pragma once

#include <string>
#include <utility>

#include "Composition.h"
#include "support/Backdrop.h"

// Parsers of option values. All throw ToolError.

VEView ParseView(const std::string& text);                   ///< "X,Y,ZOOM,W"
Rgba ParseColor(const std::string& text);                    ///< "R,G,B,A", each 0 … 255
std::pair<int, int> ParsePosition(const std::string& text);  ///< "X,Y"
Backdrop ParseBackdrop(const std::string& text);             ///< "checker" or "#rrggbb"
