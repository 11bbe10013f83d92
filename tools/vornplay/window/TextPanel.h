#pragma once

#include <string>
#include <vector>

#include "Texture.h"
#include "window/FillProgram.h"
#include "window/Layout.h"

using TextLines = std::vector<std::string>;

/// Text in capitals on a dark ground. \param scale pixels per pixel of the font
Image RenderText(const TextLines& lines, int scale);

/// The largest scale up to \p wanted at which the lines fit, or 1.
int FittingScale(const TextLines& lines, int wanted, Size room);

/// Draws panels of text over the window.
class TextProgram {
public:
    TextProgram();
    void Draw(GLuint texture, const Area& area, int drawableHeight) const;

private:
    FillProgram program_;
    GLint corner_;
};

/// Lines of text in a texture, which is filled again when they change.
class TextPanel {
public:
    void Set(const TextLines& lines, int scale);
    void Draw(const TextProgram& program, int left, int top, int drawableHeight) const;
    Size PanelSize() const { return size_; }

private:
    Texture texture_;
    TextLines lines_;
    int scale_ = 0;
    Size size_;
};
