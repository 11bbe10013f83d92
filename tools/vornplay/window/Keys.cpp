#include "window/Keys.h"

#include <algorithm>
#include <iostream>

#include "support/ToolError.h"
#include "window/Camera.h"
#include "window/SaveFrame.h"
#include "window/hud/Texts.h"

namespace {

constexpr double kShortStep = 5.0;
constexpr double kLongStep = 60.0;
constexpr double kVolumeStep = 0.1;

}  // namespace

/// A key that is held down repeats only if it moves or changes something by steps.
void Keys::Handle(const SDL_KeyboardEvent& key) {
    switch (key.keysym.sym) {
        case SDLK_PLUS:
        case SDLK_EQUALS:
        case SDLK_KP_PLUS: ChangeVolume(kVolumeStep); return;
        case SDLK_MINUS:
        case SDLK_KP_MINUS: ChangeVolume(-kVolumeStep); return;
        default: break;
    }
    if (key.repeat == 0) {
        HandleWindowKey(key.keysym.sym);
    }
    if (session_.clip == nullptr || HandlePan(key.keysym)) {
        return;
    }
    HandleMove(key.keysym.sym);
    if (key.repeat == 0) {
        HandleClipKey(key.keysym.sym);
    }
}

void Keys::HandleWindowKey(SDL_Keycode key) {
    switch (key) {
        case SDLK_f:
        case SDLK_F11: ToggleFullScreen(); break;
        case SDLK_ESCAPE: session_.window.SetFullScreen(false); break;
        case SDLK_m: ToggleMute(); break;
        case SDLK_h:
        case SDLK_F1: session_.hud.TurnKeys(); break;
        case SDLK_PAGEUP: session_.turn = -1; break;
        case SDLK_PAGEDOWN: session_.turn = 1; break;
        case SDLK_q: session_.quits = true; break;
        default: break;
    }
}

/// Arrows with Shift.
bool Keys::HandlePan(const SDL_Keysym& key) {
    constexpr double kPart = 0.05;
    const Size size = session_.FrameSize();
    Point pixels;
    switch (key.sym) {
        case SDLK_LEFT: pixels.x = -kPart * size.width; break;
        case SDLK_RIGHT: pixels.x = kPart * size.width; break;
        case SDLK_UP: pixels.y = -kPart * size.height; break;
        case SDLK_DOWN: pixels.y = kPart * size.height; break;
        default: return false;
    }
    if ((key.mod & KMOD_SHIFT) == 0) {
        return false;
    }
    VEView& view = Playing().stage.NextShot().view;
    view = Dragged(view, pixels, size);
    return true;
}

void Keys::HandleMove(SDL_Keycode key) {
    const double now = Playing().playback.Seconds();
    switch (key) {
        case SDLK_LEFT: Seek(now - kShortStep); break;
        case SDLK_RIGHT: Seek(now + kShortStep); break;
        case SDLK_DOWN: Seek(now - kLongStep); break;
        case SDLK_UP: Seek(now + kLongStep); break;
        case SDLK_COMMA: Step(false); break;
        case SDLK_PERIOD: Step(true); break;
        default: break;
    }
}

void Keys::HandleClipKey(SDL_Keycode key) {
    Clip& clip = Playing();
    Shot& shot = clip.stage.NextShot();
    switch (key) {
        case SDLK_SPACE: clip.playback.Toggle(); break;
        case SDLK_HOME: Seek(0.0); break;
        case SDLK_END:
            clip.playback.SeekToEnd();
            session_.hud.Say(PlaceText(clip.stage.Seconds()));
            break;
        case SDLK_l:
            clip.playback.ToggleLoop();
            session_.hud.Say(clip.playback.Loops() ? "Loop: on" : "Loop: off");
            break;
        case SDLK_0:
        case SDLK_KP_0: shot.view = clip.options.view.value_or(kFitView); break;
        case SDLK_x: shot.mirror = !shot.mirror; break;
        case SDLK_k: SwitchMask(); break;
        case SDLK_s: Save(); break;
        case SDLK_i: session_.hud.ToggleFigures(); break;
        default: break;
    }
    session_.hud.ShowTimeLine();
}

void Keys::ToggleFullScreen() {
    session_.window.SetFullScreen(!session_.window.IsFullScreen());
}

void Keys::Seek(double seconds) {
    Playing().playback.Seek(seconds);
    session_.hud.Say(PlaceText(Playing().stage.Seconds()));
    session_.hud.ShowTimeLine();
}

void Keys::Step(bool forward) {
    Playback& playback = Playing().playback;
    if (forward) {
        playback.Step();
    } else {
        playback.StepBack();
    }
    session_.hud.Say(playback.AtEnd() ? kAtEnd : PlaceText(Playing().stage.Seconds()));
}

void Keys::ToggleMute() {
    SetVolume({session_.volume.level, !session_.volume.mute});
}

void Keys::ChangeVolume(double by) {
    SetVolume({std::clamp(session_.volume.level + by, 0.0, 1.0), false});
}

void Keys::SetVolume(const Volume& volume) {
    session_.volume = volume;
    session_.speaker.SetVolume(volume.Heard());
    const bool silent = session_.clip != nullptr && !session_.clip->sound.IsThere();
    session_.hud.Say(silent ? kNoSound : VolumeText(volume.level, volume.mute));
    session_.hud.ShowTimeLine();
}

void Keys::SwitchMask() {
    Stage& stage = Playing().stage;
    bool& hidden = stage.NextShot().hidesMask;
    hidden = !hidden && stage.GetMask().has_value();
    session_.hud.Say(MaskText(stage));
}

void Keys::Save() {
    try {
        const std::string path = SaveFrame(Playing().stage);
        session_.hud.Say("Saved " + path);
        if (!Playing().options.quiet) {
            std::cerr << "vornplay: saved " << path << '\n';
        }
    } catch (const ToolError& error) {
        session_.hud.Say("Not saved");
        std::cerr << "vornplay: " << error.what() << '\n';
    }
}
