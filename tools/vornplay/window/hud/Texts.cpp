#include "window/hud/Texts.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace {

template <typename... Values>
std::string Format(const char* format, Values... values) {
    std::array<char, 80> text{};
    (void)std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string SoundText(const Clip& clip) {
    constexpr double kMilliseconds = 1000.0;
    const std::optional<double> ahead = clip.playback.AheadOfSound();
    if (!clip.sound.IsThere() || !ahead.has_value()) {
        return clip.sound.IsThere() ? "silent" : "none";
    }
    return Format("%+.0f ms", -*ahead * kMilliseconds);
}

}  // namespace

std::string MaskText(const Stage& stage) {
    if (!stage.GetMask().has_value()) {
        return "No mask: --mask names one";
    }
    return stage.NextShot().hidesMask ? "Mask: off" : "Mask: on";
}

std::string VolumeText(double level, bool mute) {
    return mute ? "Sound: off" : Format("Volume: %.0f %%", level * 100.0);
}

TextRows KeyTexts() {
    return {
        {"Space", "pause or go on"},
        {"← →", "5 seconds back or on"},
        {"↓ ↑", "a minute back or on"},
        {", .", "a frame back or on"},
        {"Home End", "first or last frame"},
        {"Page Up Down", "previous or next clip"},
        {"L", "loop"},
        {"M", "sound on or off"},
        {"- +", "volume"},
        {"F", "full screen; Esc leaves it"},
        {"Drag", "move the view"},
        {"Shift ←→↑↓", "move the view"},
        {"Wheel", "zoom"},
        {"0", "view as at the start"},
        {"X", "mirror"},
        {"K", "mask on or off"},
        {"Click", "drop a sticker"},
        {"Right click", "take the last one away"},
        {"S", "save the frame as PNG"},
        {"I", "figures"},
        {"H", "these keys"},
        {"Q", "quit"},
    };
}

TextRows FigureTexts(const Clip& clip) {
    const Stage& stage = clip.stage;
    const Playback& playback = clip.playback;
    const Size size = stage.FrameSize();
    return {
        {"Picture", Format("%d × %d, %s", size.width, size.height,
                           stage.ByPlatform() ? "decoded by the platform" : "from pixels")},
        {"Rate",
         Format("%.1f of %.1f a second", clip.figures.FramesPerSecond(Figures::Clock::now()),
                1.0 / stage.FrameSeconds())},
        {"Drawing", Format("%.2f ms", clip.figures.Drawing())},
        {"Latency", Format("%.2f ms", clip.figures.Latency())},
        {"Shown", Format("%lld", static_cast<long long>(playback.FramesShown()))},
        {"Dropped", Format("%lld", static_cast<long long>(playback.Dropped()))},
        {"Sound", SoundText(clip)},
        {"Time", TimeText(stage.Seconds(), 3)},
    };
}

std::string PlaceText(double seconds) {
    return "At " + TimeText(seconds, 3);
}
