#include "window/Controls.h"

#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "support/PngFile.h"
#include "support/ToolError.h"
#include "window/Camera.h"
#include "window/Texts.h"

namespace {

constexpr double kSeekSeconds = 5.0;
/// How far the pointer may move in a click.
constexpr int kClickDistance = 4;

/// "clip-12.480s", or "frame-12.480s" for a numbered sequence.
std::string NameOf(const Stage& stage) {
    std::string stem = std::filesystem::path(stage.GetOptions().input).stem().string();
    if (stem.empty() || stem.find('%') != std::string::npos) {
        stem = "frame";
    }
    std::ostringstream name;
    name << stem << '-' << std::fixed << std::setprecision(3) << stage.Seconds() << 's';
    return name.str();
}

/// Saves the current frame, with its alpha, as a new PNG file in the current directory.
/// \return its name
std::string SaveFrame(Stage& stage) {
    const std::string name = NameOf(stage);
    std::string path = name + ".png";
    for (int number = 2; std::filesystem::exists(path); ++number) {
        path = name + "-" + std::to_string(number) + ".png";
    }
    stage.Draw();  // The shot may have changed since the last draw.
    WritePng(path, stage.ReadBack());
    return path;
}

}  // namespace

void Controls::Handle(const SDL_Event& event) {
    switch (event.type) {
        case SDL_QUIT: quits_ = true; break;
        case SDL_KEYDOWN: HandleKey(event.key); break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP: HandleButton(event.button); break;
        case SDL_MOUSEMOTION: HandleMotion(event.motion); break;
        case SDL_MOUSEWHEEL: HandleWheel(event.wheel); break;
        default: break;
    }
}

/// A key that is held down repeats only if it moves through the clip.
void Controls::HandleKey(const SDL_KeyboardEvent& key) {
    switch (key.keysym.sym) {
        case SDLK_LEFT: SeekBy(-kSeekSeconds); break;
        case SDLK_RIGHT: SeekBy(kSeekSeconds); break;
        case SDLK_PERIOD: Step(); break;
        default:
            if (key.repeat == 0) {
                HandleCommand(key.keysym.sym);
            }
    }
}

void Controls::HandleCommand(SDL_Keycode key) {
    switch (key) {
        case SDLK_SPACE: playback_.Toggle(); break;
        case SDLK_m: stage_.NextShot().mirror = !stage_.NextShot().mirror; break;
        case SDLK_k: SwitchMask(); break;
        case SDLK_s: Save(); break;
        case SDLK_i: hud_.ToggleFigures(); break;
        case SDLK_h: hud_.ToggleKeys(); break;
        case SDLK_q: quits_ = true; break;
        default: break;
    }
}

void Controls::SeekBy(double seconds) {
    playback_.SeekBy(seconds);
    hud_.Say(PlaceText(stage_.Seconds()));
}

void Controls::Step() {
    playback_.Step();
    hud_.Say(playback_.AtEnd() ? kAtEnd : PlaceText(stage_.Seconds()));
}

void Controls::SwitchMask() {
    bool& hidden = stage_.NextShot().hidesMask;
    hidden = !hidden && stage_.GetMask().has_value();
    hud_.Say(MaskText(stage_));
}

void Controls::Save() {
    try {
        const std::string path = SaveFrame(stage_);
        hud_.Say("Saved " + path);
        if (!stage_.GetOptions().quiet) {
            std::cerr << "vornplay: saved " << path << '\n';
        }
    } catch (const ToolError& error) {
        hud_.Say("Not saved");
        std::cerr << "vornplay: " << error.what() << '\n';
    }
}

void Controls::HandleButton(const SDL_MouseButtonEvent& button) {
    const bool down = button.type == SDL_MOUSEBUTTONDOWN;
    if (button.button == SDL_BUTTON_RIGHT && down) {
        TakeSticker();
    }
    if (button.button != SDL_BUTTON_LEFT) {
        return;
    }
    const bool clicked = press_.down && !press_.drags && !down;
    press_ = {down, false, button.x, button.y};
    if (clicked) {
        DropSticker(button.x, button.y);
    }
}

void Controls::HandleMotion(const SDL_MouseMotionEvent& motion) {
    if (!press_.down) {
        return;
    }
    const int across = motion.x - press_.x;
    const int down = motion.y - press_.y;
    if (!press_.drags && std::abs(across) <= kClickDistance && std::abs(down) <= kClickDistance) {
        return;
    }
    press_ = {true, true, motion.x, motion.y};
    const Layout layout = CurrentLayout();
    VEView& view = stage_.NextShot().view;
    view = Dragged(view, {layout.PictureDistance(across), layout.PictureDistance(down)},
                   stage_.FrameSize());
}

void Controls::HandleWheel(const SDL_MouseWheelEvent& wheel) {
    const Size size = stage_.FrameSize();
    int x = 0;
    int y = 0;
    SDL_GetMouseState(&x, &y);
    const Point middle = {size.width / 2.0, size.height / 2.0};
    const Point place = CurrentLayout().PictureAt(x, y).value_or(middle);
    VEView& view = stage_.NextShot().view;
    view = Zoomed(view, static_cast<double>(wheel.preciseY), place, size);
}

void Controls::DropSticker(int x, int y) {
    const std::optional<Point> place = CurrentLayout().PictureAt(x, y);
    if (!place.has_value()) {
        hud_.Say(kBesidePicture);
        return;
    }
    stage_.NextShot().stickers.push_back(
        StickerAt(stage_.NextShot().view, *place, stage_.FrameSize()));
}

void Controls::TakeSticker() {
    if (stage_.NextShot().stickers.empty()) {
        hud_.Say(kNoStickerLeft);
        return;
    }
    stage_.NextShot().stickers.pop_back();
}
