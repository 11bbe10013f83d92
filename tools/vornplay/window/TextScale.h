#pragma once

#include <SDL_video.h>

/// How much larger than usual the user's desktop wants texts, besides the density that SDL knows
/// of: on X11 by the resource Xft.dpi, or else by the dots per inch of the screen; 1 if that is
/// little or unknown.
double TextScaleOf(SDL_Window& window);
