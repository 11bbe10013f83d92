#include "window/hud/TextPanel.h"

#include <algorithm>

namespace {

constexpr Rgb kTextColor = {255, 255, 255};
constexpr Rgb kLabelColor = {160, 178, 204};

struct Columns {
    int label = 0;  ///< Width of the labels, with the gap after them.
    int text = 0;
};

Columns Measure(Font& font, const TextRows& rows, int width) {
    Columns columns;
    for (const TextRow& row : rows) {
        columns.label = std::max(columns.label, font.Width(row.label));
        columns.text = std::max(columns.text, font.Width(row.text));
    }
    columns.label += columns.label > 0 ? font.Pixels() : 0;
    columns.text = std::clamp(columns.text, 1, std::max(1, width - columns.label));
    return columns;
}

Image Render(Font& font, const TextRows& rows, int width) {
    const Columns columns = Measure(font, rows, width);
    Image image({columns.label + columns.text, font.LineHeight() * static_cast<int>(rows.size())});
    int top = 0;
    for (const TextRow& row : rows) {
        font.Write(image, 0, top, row.label, kLabelColor);
        font.Write(image, columns.label, top, font.Shortened(row.text, columns.text), kTextColor);
        top += font.LineHeight();
    }
    return image;
}

}  // namespace

void TextPanel::Set(Font& font, const TextRows& rows, int width) {
    if (rows == rows_ && width == width_ && font.Pixels() == pixels_) {
        return;
    }
    rows_ = rows;
    width_ = width;
    pixels_ = font.Pixels();
    padding_ = Padding(font);
    const Image image = Render(font, rows, width - 2 * padding_);
    size_ = image.size;
    Upload(image);
}

void TextPanel::Upload(const Image& image) const {
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);  // The renderer may have left one bound.
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture_.Name());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, size_.width, size_.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 image.pixels.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(GL_TEXTURE_2D, 0);
}

Size TextPanel::PanelSize() const {
    return {size_.width + 2 * padding_, size_.height + padding_};
}

void TextPanel::DrawText(const Painter& painter, int left, int top) const {
    painter.Picture(texture_.Name(), {left, top, size_.width, size_.height});
}

void TextPanel::DrawPanel(const Painter& painter, int left, int top) const {
    const Size size = PanelSize();
    painter.RoundRect({left, top, size.width, size.height}, padding_, kGround);
    DrawText(painter, left + padding_, top + padding_ / 2);
}
