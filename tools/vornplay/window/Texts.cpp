#include "window/Texts.h"

#include <array>
#include <cstdio>

namespace {

template <typename... Values>
std::string Format(const char* format, Values... values) {
    std::array<char, 80> text{};
    (void)std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

}  // namespace

std::string MaskText(const Stage& stage) {
    if (!stage.GetMask().has_value()) {
        return "No mask: --mask names one";
    }
    return stage.NextShot().hidesMask ? "Mask: off" : "Mask: on";
}

TextLines KeyTexts(const Stage& stage) {
    return {
        "Drag         move the view",
        "Wheel        zoom",
        "Click        drop a sticker",
        "Right click  take the last one away",
        "M            mirror",
        "K            mask on or off",
        "Space        pause",
        "Left Right   5 s back or forward",
        ".            one frame",
        "S            save the frame as PNG",
        "I            figures",
        "H            these keys",
        "Q            quit",
        "",
        MaskText(stage),
    };
}

TextLines FigureTexts(const Figures& figures, const Playback& playback, const Stage& stage) {
    const Size size = stage.FrameSize();
    return {
        Format("%dx%d %s", size.width, size.height,
               stage.ByPlatform() ? "decoded by the platform" : "from pixels"),
        Format("%.1f of %.1f fps", figures.FramesPerSecond(Figures::Clock::now()),
               1.0 / stage.FrameSeconds()),
        Format("Frame   %.2f ms", figures.Drawing()),
        Format("Latency %.2f ms", figures.Latency()),
        Format("Shown   %lld", static_cast<long long>(playback.FramesShown())),
        Format("Dropped %lld", static_cast<long long>(playback.Dropped())),
        PlaceText(stage.Seconds()),
    };
}

std::string PlaceText(double seconds) {
    return Format("At %.3f s", seconds);
}
