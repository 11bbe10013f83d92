#pragma once

#include <SDL_video.h>

#include <memory>
#include <string>

#include "window/Layout.h"

/// A window with an OpenGL ES 3 context by EGL, current on the thread that made it.
class GlWindow {
public:
    /// A window for pictures of this size, or smaller if the screen is. \throws ToolError
    GlWindow(const std::string& title, Size picture);

    void SetTitle(const std::string& title) { SDL_SetWindowTitle(window_.get(), title.c_str()); }
    void Present() { SDL_GL_SwapWindow(window_.get()); }
    bool IsFullScreen() const;
    void SetFullScreen(bool on);
    Layout LayoutOf(Size picture) const;

private:
    struct DestroyWindow {
        void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
    };
    struct DeleteContext {
        void operator()(void* context) const { SDL_GL_DeleteContext(context); }
    };

    std::unique_ptr<SDL_Window, DestroyWindow> window_;
    std::unique_ptr<void, DeleteContext> context_;
    double textScale_ = 1.0;
};
