#include "window/TextScale.h"

#include <SDL_syswm.h>

#include <algorithm>
#include <cstdlib>

namespace {

/// X servers claim the usual value, unless they are told of another one.
double DotsPerInch(Display* display) {
    if (const char* wanted = XGetDefault(display, "Xft", "dpi")) {
        return std::strtod(wanted, nullptr);
    }
    constexpr double kMillimeters = 25.4;
    const int screen = DefaultScreen(display);
    const int width = std::max(1, DisplayWidthMM(display, screen));
    return DisplayWidth(display, screen) * kMillimeters / width;
}

}  // namespace

double TextScaleOf(SDL_Window& window) {
    constexpr double kUsual = 96.0;
    constexpr double kLeast = 1.25;
    constexpr double kMost = 4.0;
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(&window, &info) == SDL_FALSE || info.subsystem != SDL_SYSWM_X11) {
        return 1.0;
    }
    const double scale = DotsPerInch(info.info.x11.display) / kUsual;
    return scale < kLeast ? 1.0 : std::min(scale, kMost);
}
