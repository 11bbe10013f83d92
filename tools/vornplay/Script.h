#pragma once

#include <string>
#include <vector>

#include "Composition.h"

/// A composition that was read from a file.
struct Script {
    std::string sticker;  ///< Path of the picture; empty for none.
    std::vector<Keyframe> keyframes;
};

/// \param hasSticker the options name a picture for stickers
/// \throws ToolError that names the line; keys without a meaning are errors, too
Script ReadScript(const std::string& path, bool hasSticker);
