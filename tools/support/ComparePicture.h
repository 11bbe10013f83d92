#pragma once

#include <string>

#include "support/Image.h"

/// Compares a picture with the PNG file \p path. Rounding may differ, as it does from one GL to
/// another, and so may single pixels at edges. \throws ToolError unless they look the same
void ComparePicture(const Image& drawn, const std::string& path);
