#pragma once

#include <SDL_events.h>

#include <optional>

#include "window/Keys.h"

/// Does what the mouse asks for.
class Pointer {
public:
    Pointer(Session& session, Keys& keys) : session_(session), keys_(keys) {}

    /// \throws ToolError
    void Handle(const SDL_Event& event);
    /// Goes where the time line was dragged to since the last call. \throws ToolError
    void Seek();

private:
    /// The left button, and what the pointer did since it went down.
    struct Press {
        bool down = false;
        bool drags = false;
        int x = 0;
        int y = 0;
        TimeLine::Part part = TimeLine::Part::kNone;
    };

    void HandleButton(const SDL_MouseButtonEvent& button);
    void HandleMotion(const SDL_MouseMotionEvent& motion);
    void HandleWheel(const SDL_MouseWheelEvent& wheel);
    TimeLine::Part PartAt(int x, int y) const;
    void PressPart(TimeLine::Part part, int x);
    void DragView(int x, int y);
    void Click(const SDL_MouseButtonEvent& button);
    void DropSticker(int x, int y);
    void TakeSticker();
    Shot& NextShot() const { return session_.clip->stage.NextShot(); }

    Session& session_;
    Keys& keys_;
    Press press_;
    std::optional<double> seekTo_;
    bool dropped_ = false;  ///< The last click left a sticker.
};
