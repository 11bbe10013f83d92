#pragma once

#include <string>

#include "Stage.h"

/// Saves the frame at hand as PNG, with its alpha, in the current directory, under a
/// name of its own made of the clip's name and the frame's time. \return the name \throws ToolError
std::string SaveFrame(Stage& stage);
