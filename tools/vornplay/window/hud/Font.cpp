#include "window/hud/Font.h"

#include <SDL.h>

#include <algorithm>

#include "support/BitmapFont.h"
#include "window/hud/FontFiles.h"

namespace {

constexpr const char* kCodePoints = SDL_BYTEORDER == SDL_LIL_ENDIAN ? "UTF-32LE" : "UTF-32BE";
constexpr char kUtf8[] = "UTF-8";

template <typename Character>
std::basic_string<Character> Converted(const char* to, const char* from, const void* text,
                                       size_t bytes) {
    const std::unique_ptr<char, void (*)(void*)> result(
        SDL_iconv_string(to, from, static_cast<const char*>(text), bytes), SDL_free);
    return result != nullptr ? reinterpret_cast<const Character*>(result.get())
                             : std::basic_string<Character>();
}

/// Leaves out what is not UTF-8.
std::u32string CodePoints(const std::string& text) {
    return Converted<char32_t>(kCodePoints, kUtf8, text.c_str(), text.size() + 1);
}

std::string Utf8(const std::u32string& text) {
    return Converted<char>(kUtf8, kCodePoints, text.c_str(), (text.size() + 1) * sizeof(char32_t));
}

/// Copies the part of a rendered line that is within the image.
void Copy(const SDL_Surface& line, Image& image, int left, int top) {
    const int right = std::min(image.size.width, left + line.w);
    const int bottom = std::min(image.size.height, top + line.h);
    for (int y = std::max(0, top); y < bottom; ++y) {
        const auto* row =
            reinterpret_cast<const uint32_t*>(static_cast<const uint8_t*>(line.pixels) +
                                              static_cast<ptrdiff_t>(y - top) * line.pitch);
        for (int x = std::max(0, left); x < right; ++x) {
            const uint32_t argb = row[x - left];
            uint8_t* pixel = image.At(x, y);
            if (argb >> 24U > pixel[3]) {
                pixel[0] = static_cast<uint8_t>(argb >> 16U);
                pixel[1] = static_cast<uint8_t>(argb >> 8U);
                pixel[2] = static_cast<uint8_t>(argb);
                pixel[3] = static_cast<uint8_t>(argb >> 24U);
            }
        }
    }
}

/// In the font that comes with the program.
void WritePlain(Image& image, int left, int top, const std::string& text, int scale,
                const Rgb& color) {
    Image letters({TextWidth(text, scale), TextHeight(scale)});
    DrawText(letters, 0, 0, text, scale, {255, 255, 255});
    for (int y = 0; y < std::min(letters.size.height, image.size.height - top); ++y) {
        for (int x = 0; x < std::min(letters.size.width, image.size.width - left); ++x) {
            if (letters.At(x, y)[0] != 0) {
                uint8_t* pixel = image.At(left + x, top + y);
                std::copy(color.begin(), color.end(), pixel);
                pixel[3] = 255;
            }
        }
    }
}

}  // namespace

Font::Font(int pixels) : pixels_(pixels) {
    if (TTF_WasInit() == 0) {
        TTF_Init();  // Until the process ends.
    }
    usual_ = Open(0);
}

/// \return the font for a character, or null
TTF_Font* Font::Open(char32_t character) {
    const FontFile file = FindFontFile(character);
    auto [entry, isNew] = open_.try_emplace(file.path);
    if (isNew && !file.path.empty()) {
        entry->second.reset(TTF_OpenFontIndex(file.path.c_str(), pixels_, file.index));
        if (entry->second != nullptr) {
            TTF_SetFontHinting(entry->second.get(), TTF_HINTING_LIGHT);
        }
    }
    return entry->second.get();
}

TTF_Font* Font::FontOf(char32_t character) {
    if (TTF_GlyphIsProvided32(usual_, character) != 0) {
        return usual_;
    }
    const auto [entry, isNew] = fallbacks_.try_emplace(character, usual_);
    if (isNew) {
        TTF_Font* font = Open(character);
        if (font != nullptr && TTF_GlyphIsProvided32(font, character) != 0) {
            entry->second = font;
        }
    }
    return entry->second;
}

std::vector<Font::Run> Font::Split(const std::string& text) {
    std::vector<Run> runs;
    std::u32string run;
    for (const char32_t character : CodePoints(text)) {
        TTF_Font* font = FontOf(character);
        if (runs.empty() || runs.back().font != font) {
            runs.push_back({font, ""});
            run.clear();
        }
        run += character;
        runs.back().text = Utf8(run);
    }
    return runs;
}

/// Of the font that comes with the program.
int Font::Scale() const {
    constexpr int kLetterHeight = 7;
    return std::max(1, pixels_ / kLetterHeight / 2 + 1);
}

int Font::LineHeight() const {
    return usual_ != nullptr ? TTF_FontHeight(usual_) : TextHeight(Scale() + 1);
}

int Font::Width(const std::string& text) {
    if (usual_ == nullptr) {
        return TextWidth(text, Scale());
    }
    int width = 0;
    for (const Run& run : Split(text)) {
        int part = 0;
        TTF_SizeUTF8(run.font, run.text.c_str(), &part, nullptr);
        width += part;
    }
    return width;
}

std::string Font::Shortened(const std::string& text, int width) {
    if (Width(text) <= width) {
        return text;
    }
    constexpr char kEllipsis[] = "…";
    std::u32string kept = CodePoints(text);
    while (!kept.empty() && Width(Utf8(kept) + kEllipsis) > width) {
        kept.pop_back();
    }
    return Utf8(kept) + kEllipsis;
}

void Font::Write(Image& image, int left, int top, const std::string& text, const Rgb& color) {
    if (usual_ == nullptr) {
        WritePlain(image, left, top, text, Scale(), color);
        return;
    }
    for (const Run& run : Split(text)) {
        const std::unique_ptr<SDL_Surface, void (*)(SDL_Surface*)> line(
            TTF_RenderUTF8_Blended(run.font, run.text.c_str(), {color[0], color[1], color[2], 255}),
            SDL_FreeSurface);
        if (line != nullptr) {
            Copy(*line, image, left, top + TTF_FontAscent(usual_) - TTF_FontAscent(run.font));
            left += line->w;
        }
    }
}
