#pragma once

#include <string>

#include "support/Backdrop.h"
#include "support/Image.h"

/// Draws ASCII text in capitals of 5x7 pixels, each \p scale times as large. Clips at
/// the edges of the image.
void DrawText(Image& image, int left, int top, const std::string& text, int scale,
              const Rgb& color);

int TextWidth(const std::string& text, int scale);
int TextHeight(int scale);
