#include "window/Pointer.h"

#include <cstdlib>

#include "window/Camera.h"
#include "window/hud/Texts.h"

namespace {

/// How far the pointer may move in a click.
constexpr int kClickDistance = 4;

}  // namespace

void Pointer::Handle(const SDL_Event& event) {
    session_.hud.ShowTimeLine();
    switch (event.type) {
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP: HandleButton(event.button); break;
        case SDL_MOUSEMOTION: HandleMotion(event.motion); break;
        case SDL_MOUSEWHEEL: HandleWheel(event.wheel); break;
        default: break;
    }
}

void Pointer::Seek() {
    if (seekTo_.has_value() && session_.clip != nullptr) {
        session_.clip->playback.Seek(*seekTo_);
    }
    seekTo_.reset();
}

TimeLine::Part Pointer::PartAt(int x, int y) const {
    const TimeLine* bar = session_.hud.Bar();
    return bar != nullptr ? bar->At(session_.CurrentLayout().DrawableAt(x, y))
                          : TimeLine::Part::kNone;
}

void Pointer::HandleButton(const SDL_MouseButtonEvent& button) {
    const bool down = button.type == SDL_MOUSEBUTTONDOWN;
    const TimeLine::Part part = PartAt(button.x, button.y);
    if (button.button == SDL_BUTTON_RIGHT && down && part == TimeLine::Part::kNone) {
        TakeSticker();
    }
    if (button.button != SDL_BUTTON_LEFT) {
        return;
    }
    const Press before = press_;
    press_ = {down, false, button.x, button.y, down ? part : TimeLine::Part::kNone};
    if (down) {
        PressPart(part, button.x);
    } else if (before.down && !before.drags && before.part == TimeLine::Part::kNone) {
        Click(button);
    }
}

void Pointer::PressPart(TimeLine::Part part, int x) {
    switch (part) {
        case TimeLine::Part::kPlay: session_.clip->playback.Toggle(); break;
        case TimeLine::Part::kSound: keys_.ToggleMute(); break;
        case TimeLine::Part::kTrack:
            seekTo_ = session_.hud.Bar()->SecondsAt(session_.CurrentLayout().DrawableAt(x, 0).x);
            break;
        default: break;
    }
}

void Pointer::HandleMotion(const SDL_MouseMotionEvent& motion) {
    if (!press_.down || session_.clip == nullptr) {
        return;
    }
    if (press_.part == TimeLine::Part::kTrack && session_.hud.Bar() != nullptr) {
        PressPart(press_.part, motion.x);
    } else if (press_.part == TimeLine::Part::kNone) {
        DragView(motion.x, motion.y);
    }
}

void Pointer::DragView(int x, int y) {
    const int across = x - press_.x;
    const int down = y - press_.y;
    if (!press_.drags && std::abs(across) <= kClickDistance && std::abs(down) <= kClickDistance) {
        return;
    }
    press_ = {true, true, x, y, TimeLine::Part::kNone};
    const Layout layout = session_.CurrentLayout();
    VEView& view = NextShot().view;
    view = Dragged(view, {layout.PictureDistance(across), layout.PictureDistance(down)},
                   session_.FrameSize());
}

/// Over the time line it changes the volume.
void Pointer::HandleWheel(const SDL_MouseWheelEvent& wheel) {
    constexpr double kVolumeStep = 0.05;
    int x = 0;
    int y = 0;
    SDL_GetMouseState(&x, &y);
    if (PartAt(x, y) != TimeLine::Part::kNone) {
        keys_.ChangeVolume(kVolumeStep * static_cast<double>(wheel.preciseY));
    } else if (session_.clip != nullptr) {
        const Size size = session_.FrameSize();
        const Point middle = {size.width / 2.0, size.height / 2.0};
        const Point place = session_.CurrentLayout().PictureAt(x, y).value_or(middle);
        VEView& view = NextShot().view;
        view = Zoomed(view, static_cast<double>(wheel.preciseY), place, size);
    }
}

/// The second click of a double click takes back what the first one did.
void Pointer::Click(const SDL_MouseButtonEvent& button) {
    if (button.clicks % 2 != 0) {
        DropSticker(button.x, button.y);
        return;
    }
    if (dropped_) {
        NextShot().stickers.pop_back();
    }
    dropped_ = false;
    keys_.ToggleFullScreen();
}

void Pointer::DropSticker(int x, int y) {
    dropped_ = false;
    if (session_.clip == nullptr) {
        return;
    }
    const std::optional<Point> place = session_.CurrentLayout().PictureAt(x, y);
    if (!place.has_value()) {
        session_.hud.Say(kBesidePicture);
        return;
    }
    NextShot().stickers.push_back(StickerAt(NextShot().view, *place, session_.FrameSize()));
    dropped_ = true;
}

void Pointer::TakeSticker() {
    dropped_ = false;
    if (session_.clip == nullptr) {
        return;
    }
    if (NextShot().stickers.empty()) {
        session_.hud.Say(kNoStickerLeft);
        return;
    }
    NextShot().stickers.pop_back();
}
