#pragma once

#include <string>
#include <utility>

#include "Composition.h"
#include "parts/PartRange.h"
#include "support/Backdrop.h"

// Parsers of option values. All throw ToolError.

VEView ParseView(const std::string& text);                   ///< "X,Y,ZOOM,W"
Rgba ParseColor(const std::string& text);                    ///< "R,G,B,A", each 0 … 255
std::pair<int, int> ParsePosition(const std::string& text);  ///< "X,Y"
PartNumber ParsePart(const std::string& text);               ///< "K/N"
Backdrop ParseBackdrop(const std::string& text);             ///< "checker" or "#rrggbb"
