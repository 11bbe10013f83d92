#pragma once

#include <string>
#include <vector>

#include "Texture.h"
#include "window/hud/Font.h"
#include "window/hud/Painter.h"

/// A line of text: a label, which may be empty, and what it is about.
struct TextRow {
    std::string label;
    std::string text;

    bool operator==(const TextRow& other) const {
        return label == other.label && text == other.text;
    }
};

using TextRows = std::vector<TextRow>;

/// Lines of text in two columns, which are drawn again when they change.
class TextPanel {
public:
    /// \param width of the whole at most, in pixels
    void Set(Font& font, const TextRows& rows, int width);

    /// Of the letters alone.
    Size TextSize() const { return size_; }
    void DrawText(const Painter& painter, int left, int top) const;

    /// With the dark ground behind.
    Size PanelSize() const;
    void DrawPanel(const Painter& painter, int left, int top) const;

    /// Between the edge of a panel and its letters.
    static int Padding(const Font& font) { return font.Pixels() * 2 / 3; }

private:
    void Upload(const Image& image) const;

    Texture texture_;
    TextRows rows_;
    int width_ = 0;
    int pixels_ = 0;
    int padding_ = 0;
    Size size_;
};

/// Behind text.
inline constexpr Color kGround = {0.07F, 0.075F, 0.09F, 0.85F};
