#pragma once

#include <SDL_events.h>

#include "window/Session.h"

/// Does what keys ask for.
class Keys {
public:
    explicit Keys(Session& session) : session_(session) {}

    /// \throws ToolError
    void Handle(const SDL_KeyboardEvent& key);

    void ToggleFullScreen();
    void ToggleMute();
    void ChangeVolume(double by);

private:
    void HandleWindowKey(SDL_Keycode key);
    bool HandlePan(const SDL_Keysym& key);
    void HandleMove(SDL_Keycode key);
    void HandleClipKey(SDL_Keycode key);
    void Seek(double seconds);
    void Step(bool forward);
    void SetVolume(const Volume& volume);
    void SwitchMask();
    void Save();

    Clip& Playing() const { return *session_.clip; }

    Session& session_;
};
