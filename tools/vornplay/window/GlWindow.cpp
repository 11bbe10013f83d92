#include "window/GlWindow.h"

#include <SDL.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "support/ToolError.h"
#include "window/TextScale.h"

namespace {

[[noreturn]] void Fail(const std::string& what) {
    throw ToolError(what + ": " + SDL_GetError());
}

/// All usual texts fit into it.
constexpr Size kSmallest = {320, 240};

/// As large as the picture, or as the screen allows.
Size StartSize(Size picture) {
    constexpr double kOfScreen = 0.9;
    SDL_Rect screen{};
    double scale = 1.0;
    if (SDL_GetDisplayUsableBounds(0, &screen) == 0) {
        scale = std::min(
            {1.0, kOfScreen * screen.w / picture.width, kOfScreen * screen.h / picture.height});
    }
    return {std::max(kSmallest.width, static_cast<int>(picture.width * scale)),
            std::max(kSmallest.height, static_cast<int>(picture.height * scale))};
}

/// SDL stays until the process ends, since the whole process shares its EGL display.
void StartVideo() {
    // Wayland reports the density of the screen. Without it, its library would print complaints.
    const bool wayland = std::getenv("WAYLAND_DISPLAY") != nullptr;
    SDL_SetHint(SDL_HINT_VIDEODRIVER, wayland ? "wayland,x11" : "x11");
    // On X11, SDL would take GLX, which cannot share images with the decoder.
    SDL_SetHint(SDL_HINT_VIDEO_X11_FORCE_EGL, "1");
    SDL_SetHint(SDL_HINT_OPENGL_ES_DRIVER, "1");
    // Otherwise the first click only focuses the window, even if it is in front.
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_MOUSE_DOUBLE_CLICK_RADIUS, "5");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        throw ToolError(
            "no display to open a window on: name a file with --out, or let it be drawn and timed "
            "with --no-window");
    }
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_ES);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 0);
    SDL_GL_LoadLibrary(nullptr);  // Stays loaded without the window.
}

}  // namespace

GlWindow::GlWindow(const std::string& title, Size picture) {
    StartVideo();
    const Size size = StartSize(picture);
    window_.reset(SDL_CreateWindow(
        title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, size.width, size.height,
        SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI));
    if (window_ == nullptr) {
        Fail("no window");
    }
    textScale_ = TextScaleOf(*window_);
    SDL_SetWindowMinimumSize(window_.get(), static_cast<int>(kSmallest.width * textScale_),
                             static_cast<int>(kSmallest.height * textScale_));
    context_.reset(SDL_GL_CreateContext(window_.get()));
    if (context_ == nullptr) {
        Fail("no OpenGL ES 3 in the window");
    }
    // A Wayland compositor shows whole frames only, so there is no need to wait. SDL could wait
    // forever when the compositor ends.
    const bool waits = std::strcmp(SDL_GetCurrentVideoDriver(), "wayland") != 0;
    SDL_GL_SetSwapInterval(waits ? 1 : 0);
}

Layout GlWindow::LayoutOf(Size picture) const {
    Layout layout;
    SDL_GetWindowSize(window_.get(), &layout.window.width, &layout.window.height);
    SDL_GL_GetDrawableSize(window_.get(), &layout.drawable.width, &layout.drawable.height);
    for (int* length : {&layout.window.width, &layout.window.height, &layout.drawable.width,
                        &layout.drawable.height}) {
        *length = std::max(1, *length);
    }
    layout.picture = picture;
    layout.textScale = textScale_;
    return layout;
}

bool GlWindow::IsFullScreen() const {
    return (SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_FULLSCREEN) != 0;
}

void GlWindow::SetFullScreen(bool on) {
    SDL_SetWindowFullscreen(window_.get(), on ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0);
}
