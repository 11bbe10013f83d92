#pragma once

#include <SDL_events.h>

#include "window/GlWindow.h"
#include "window/Hud.h"
#include "window/Playback.h"

/// Does what keys and mouse ask for.
class Controls {
public:
    Controls(const GlWindow& window, Stage& stage, Playback& playback, Hud& hud)
        : window_(window), stage_(stage), playback_(playback), hud_(hud) {}

    /// \throws ToolError
    void Handle(const SDL_Event& event);

    bool Quits() const { return quits_; }

private:
    /// The left button, and what the pointer did since it went down.
    struct Press {
        bool down = false;
        bool drags = false;
        int x = 0;
        int y = 0;
    };

    void HandleKey(const SDL_KeyboardEvent& key);
    void HandleCommand(SDL_Keycode key);
    void HandleButton(const SDL_MouseButtonEvent& button);
    void HandleMotion(const SDL_MouseMotionEvent& motion);
    void HandleWheel(const SDL_MouseWheelEvent& wheel);
    void SeekBy(double seconds);
    void Step();
    void SwitchMask();
    void Save();
    void DropSticker(int x, int y);
    void TakeSticker();
    Layout CurrentLayout() const { return window_.LayoutOf(stage_.FrameSize()); }

    const GlWindow& window_;
    Stage& stage_;
    Playback& playback_;
    Hud& hud_;
    Press press_;
    bool quits_ = false;
};
