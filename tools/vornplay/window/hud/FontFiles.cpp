#include "window/hud/FontFiles.h"

#include <fontconfig/fontconfig.h>

#include <filesystem>
#include <memory>

namespace {

/// For systems whose fontconfig knows no font.
constexpr char kDebianFont[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

struct Destroy {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcCharSet* set) const { FcCharSetDestroy(set); }
};

std::unique_ptr<FcPattern, Destroy> Wanted(char32_t character) {
    std::unique_ptr<FcPattern, Destroy> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>("sans-serif"));
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    if (character != 0) {
        const std::unique_ptr<FcCharSet, Destroy> set(FcCharSetCreate());
        FcCharSetAddChar(set.get(), character);
        FcPatternAddCharSet(pattern.get(), FC_CHARSET, set.get());
    }
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

}  // namespace

FontFile FindFontFile(char32_t character) {
    FcResult result = FcResultNoMatch;
    const auto wanted = Wanted(character);
    const std::unique_ptr<FcPattern, Destroy> found(FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* path = nullptr;
    int index = 0;
    if (found != nullptr && FcPatternGetString(found.get(), FC_FILE, 0, &path) == FcResultMatch) {
        FcPatternGetInteger(found.get(), FC_INDEX, 0, &index);
        return {reinterpret_cast<const char*>(path), index};
    }
    return {std::filesystem::exists(kDebianFont) ? kDebianFont : "", 0};
}
