#include "window/TextPanel.h"

#include <algorithm>

#include "support/BitmapFont.h"

namespace {

constexpr int kMargin = 4;
constexpr int kLinePause = 3;
constexpr Rgb kWhite = {255, 255, 255};
constexpr uint8_t kGroundAlpha = 190;

constexpr char kFragmentShader[] = R"(#version 300 es
precision highp float;
precision highp int;
uniform highp sampler2D text;
uniform ivec2 corner;  // Lower left, in pixels of the window.
out vec4 color;

void main() {
    ivec2 at = ivec2(gl_FragCoord.xy) - corner;
    color = texelFetch(text, ivec2(at.x, textureSize(text, 0).y - 1 - at.y), 0);
}
)";

Size SizeOf(const TextLines& lines, int scale) {
    int width = 0;
    for (const std::string& line : lines) {
        width = std::max(width, TextWidth(line, scale));
    }
    const int count = static_cast<int>(lines.size());
    return {width + 2 * kMargin * scale,
            count * (TextHeight(scale) + kLinePause * scale) + (2 * kMargin - kLinePause) * scale};
}

/// The letters opaque, the ground half transparent.
void SetAlpha(Image& image) {
    for (size_t i = 0; i < image.pixels.size(); i += Image::kChannels) {
        image.pixels[i + 3] = image.pixels[i] != 0 ? uint8_t{255} : kGroundAlpha;
    }
}

}  // namespace

Image RenderText(const TextLines& lines, int scale) {
    Image image(SizeOf(lines, scale));
    int top = kMargin * scale;
    for (const std::string& line : lines) {
        DrawText(image, kMargin * scale, top, line, scale, kWhite);
        top += TextHeight(scale) + kLinePause * scale;
    }
    SetAlpha(image);
    return image;
}

int FittingScale(const TextLines& lines, int wanted, Size room) {
    const Size least = SizeOf(lines, 1);
    return std::max(1, std::min({wanted, room.width / least.width, room.height / least.height}));
}

TextProgram::TextProgram() : program_(kFragmentShader), corner_(program_.Uniform("corner")) {}

void TextProgram::Draw(GLuint texture, const Area& area, int drawableHeight) const {
    const int bottom = drawableHeight - area.top - area.height;
    glViewport(area.left, bottom, area.width, area.height);
    program_.Use();
    glUniform2i(corner_, area.left, bottom);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    FillProgram::Fill();
    glDisable(GL_BLEND);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void TextPanel::Set(const TextLines& lines, int scale) {
    if (lines == lines_ && scale == scale_) {
        return;
    }
    lines_ = lines;
    scale_ = scale;
    const Image image = RenderText(lines, scale);
    size_ = image.size;
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);  // The renderer may have left one bound.
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture_.Name());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, size_.width, size_.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 image.pixels.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void TextPanel::Draw(const TextProgram& program, int left, int top, int drawableHeight) const {
    program.Draw(texture_.Name(), {left, top, size_.width, size_.height}, drawableHeight);
}
