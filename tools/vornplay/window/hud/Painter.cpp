#include "window/hud/Painter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr char kRectShader[] = R"(#version 300 es
precision highp float;
uniform vec4 area;  // Middle, and half the size.
uniform float radius;
uniform float height;
uniform vec4 shade;
out vec4 color;

void main() {
    vec2 at = vec2(gl_FragCoord.x, height - gl_FragCoord.y);
    vec2 beyond = abs(at - area.xy) - area.zw + radius;
    float distance = length(max(beyond, 0.0)) + min(max(beyond.x, beyond.y), 0.0) - radius;
    color = vec4(shade.rgb, shade.a * clamp(0.5 - distance, 0.0, 1.0));
}
)";

constexpr char kQuadShader[] = R"(#version 300 es
precision highp float;
uniform vec2 corners[4];
uniform float height;
uniform vec4 shade;
out vec4 color;

void main() {
    vec2 at = vec2(gl_FragCoord.x, height - gl_FragCoord.y);
    float inside = 1.0;
    for (int i = 0; i < 4; ++i) {
        vec2 edge = corners[(i + 1) % 4] - corners[i];
        vec2 from = at - corners[i];
        float distance = (edge.x * from.y - edge.y * from.x) / max(length(edge), 0.001);
        inside = min(inside, dot(edge, edge) > 0.0 ? distance + 0.5 : 1.0);
    }
    color = vec4(shade.rgb, shade.a * clamp(inside, 0.0, 1.0));
}
)";

constexpr char kPictureShader[] = R"(#version 300 es
precision highp float;
precision highp int;
uniform highp sampler2D picture;
uniform ivec2 corner;  // Upper left.
uniform int height;
out vec4 color;

void main() {
    ivec2 at = ivec2(int(gl_FragCoord.x), height - 1 - int(gl_FragCoord.y)) - corner;
    color = texelFetch(picture, at, 0);
}
)";

}  // namespace

Painter::Painter() : rect_(kRectShader), quad_(kQuadShader), picture_(kPictureShader) {}

void Painter::Begin(Size drawable) {
    height_ = drawable.height;
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void Painter::End() {
    glDisable(GL_BLEND);
}

void Painter::LimitTo(const Area& area) const {
    glViewport(area.left, height_ - area.top - area.height, area.width, area.height);
}

void Painter::RoundRect(const Area& area, double radius, const Color& color) const {
    const auto halfWidth = static_cast<float>(area.width) / 2.0F;
    const auto halfHeight = static_cast<float>(area.height) / 2.0F;
    LimitTo(area);
    rect_.Use();
    glUniform4f(rect_.Uniform("area"), static_cast<float>(area.left) + halfWidth,
                static_cast<float>(area.top) + halfHeight, halfWidth, halfHeight);
    glUniform1f(rect_.Uniform("radius"), static_cast<float>(radius));
    glUniform1f(rect_.Uniform("height"), static_cast<float>(height_));
    glUniform4fv(rect_.Uniform("shade"), 1, color.data());
    FillProgram::Fill();
}

void Painter::Quad(const std::array<Point, 4>& corners, const Color& color) const {
    std::array<float, 8> places{};
    Point least = corners[0];
    Point most = corners[0];
    for (size_t i = 0; i < corners.size(); ++i) {
        const Point& corner = corners.at(i);
        places.at(2 * i) = static_cast<float>(corner.x);
        places.at(2 * i + 1) = static_cast<float>(corner.y);
        least = {std::min(least.x, corner.x), std::min(least.y, corner.y)};
        most = {std::max(most.x, corner.x), std::max(most.y, corner.y)};
    }
    const int left = static_cast<int>(std::floor(least.x)) - 1;
    const int top = static_cast<int>(std::floor(least.y)) - 1;
    LimitTo({left, top, static_cast<int>(std::ceil(most.x)) + 1 - left,
             static_cast<int>(std::ceil(most.y)) + 1 - top});
    quad_.Use();
    glUniform2fv(quad_.Uniform("corners"), static_cast<GLsizei>(corners.size()), places.data());
    glUniform1f(quad_.Uniform("height"), static_cast<float>(height_));
    glUniform4fv(quad_.Uniform("shade"), 1, color.data());
    FillProgram::Fill();
}

void Painter::Picture(GLuint texture, const Area& area) const {
    LimitTo(area);
    picture_.Use();
    glUniform2i(picture_.Uniform("corner"), area.left, area.top);
    glUniform1i(picture_.Uniform("height"), height_);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    FillProgram::Fill();
    glBindTexture(GL_TEXTURE_2D, 0);
}
