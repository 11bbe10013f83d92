#include "window/PresentPass.h"

namespace {

/// Mixes texels itself, premultiplied: the color of a transparent texel must not show in its
/// neighbors. The checkerboard is that of Backdrop.
constexpr char kFragmentShader[] = R"(#version 300 es
precision highp float;
precision highp int;
uniform highp sampler2D picture;
uniform ivec4 area;          // Left, top, width and height, in pixels of the window.
uniform int drawableHeight;
out vec4 color;

vec4 Premultiplied(ivec2 texel) {
    vec4 straight = texelFetch(picture, clamp(texel, ivec2(0), textureSize(picture, 0) - 1), 0);
    return vec4(straight.rgb * straight.a, straight.a);
}

vec4 Picture(vec2 place) {
    ivec2 first = ivec2(floor(place));
    vec2 part = place - floor(place);
    vec4 above = mix(Premultiplied(first), Premultiplied(first + ivec2(1, 0)), part.x);
    vec4 below = mix(Premultiplied(first + ivec2(0, 1)), Premultiplied(first + 1), part.x);
    return mix(above, below, part.y);
}

void main() {
    ivec2 pixel = ivec2(gl_FragCoord.xy);
    ivec2 at = ivec2(pixel.x, drawableHeight - 1 - pixel.y) - area.xy;
    if (any(lessThan(at, ivec2(0))) || any(greaterThanEqual(at, area.zw))) {
        color = vec4(vec3(24.0 / 255.0), 1.0);
        return;
    }
    vec2 scale = vec2(textureSize(picture, 0)) / vec2(area.zw);
    vec4 over = Picture((vec2(at) + 0.5) * scale - 0.5);
    float under = ((at.x / 16 + at.y / 16) & 1) == 0 ? 204.0 / 255.0 : 153.0 / 255.0;
    color = vec4(over.rgb + under * (1.0 - over.a), 1.0);
}
)";

}  // namespace

PresentPass::PresentPass()
    : program_(kFragmentShader),
      area_(program_.Uniform("area")),
      drawableHeight_(program_.Uniform("drawableHeight")) {}

void PresentPass::Draw(GLuint texture, const Layout& layout) const {
    const Area area = layout.PictureArea();
    glViewport(0, 0, layout.drawable.width, layout.drawable.height);
    program_.Use();
    glUniform4i(area_, area.left, area.top, area.width, area.height);
    glUniform1i(drawableHeight_, layout.drawable.height);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    FillProgram::Fill();
    glBindTexture(GL_TEXTURE_2D, 0);
}
