#pragma once

#include <SDL_ttf.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/Backdrop.h"
#include "support/Image.h"

/// Lines of text in the system's fonts. A character that the usual font lacks comes from another
/// one; if none has it, a box takes its place. Without any font, text is in plain capitals.
class Font {
public:
    /// \param pixels the height of the letters' square
    explicit Font(int pixels);

    int Pixels() const { return pixels_; }
    int LineHeight() const;
    int Width(const std::string& text);
    /// \p text, or its beginning and an ellipsis if it is wider than \p width.
    std::string Shortened(const std::string& text, int width);
    /// Writes a line into an image that is transparent there.
    void Write(Image& image, int left, int top, const std::string& text, const Rgb& color);

private:
    struct Close {
        void operator()(TTF_Font* font) const { TTF_CloseFont(font); }
    };
    /// Neighbors of one font.
    struct Run {
        TTF_Font* font;
        std::string text;
    };

    TTF_Font* Open(char32_t character);
    TTF_Font* FontOf(char32_t character);
    std::vector<Run> Split(const std::string& text);
    int Scale() const;

    int pixels_;
    std::map<std::string, std::unique_ptr<TTF_Font, Close>> open_;  ///< By path.
    std::map<char32_t, TTF_Font*> fallbacks_;
    TTF_Font* usual_;  ///< Null: there is none.
};
