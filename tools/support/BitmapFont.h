#pragma once

#include <string>

#include "support/Backdrop.h"
#include "support/Image.h"

/// Draws ASCII text in capitals of 5x7 pixels, each \p scale times as large. What lies beyond the
/// image is left out.
void DrawText(Image& image, int left, int top, const std::string& text, int scale,
              const Rgb& colour);

int TextWidth(const std::string& text, int scale);
int TextHeight(int scale);
