#pragma once

#include <string>

#include "Stage.h"

/// Saves the current frame, with its alpha, as a new PNG file in the current directory.
/// \return its name. \throws ToolError
std::string SaveFrame(Stage& stage);
