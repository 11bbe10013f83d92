#pragma once

#include <string>
#include <vector>

#include "Composition.h"

/// A composition that was read from a file.
struct Script {
    std::string sticker;  ///< Path of the picture; empty for none.
    std::vector<Keyframe> keyframes;

    bool NamesView() const;
};

/// \param hasSticker there is a picture for stickers already
/// \throws ToolError that names the line, also for what has no meaning
Script ReadScript(const std::string& path, bool hasSticker);
