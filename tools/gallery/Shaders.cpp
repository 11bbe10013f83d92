#include "Shaders.h"

const char kMeshVertexShader[] = R"(
in vec4 Position;
in vec4 VertexColor;
in vec2 TexCoord;
uniform highp mat4 Mvpm;
out highp vec3 place;
out lowp vec4 color;
out highp vec2 uv;
void main() {
    place = Position.xyz;
    color = VertexColor;
    uv = TexCoord;
    gl_Position = Mvpm * Position;
}
)";

// Flat shading: the normal comes from how the place changes across the picture.
const char kFacesShader[] = R"(
precision highp float;
in vec3 place;
const vec3 kFront = vec3(0.36, 0.62, 0.90);
const vec3 kBack = vec3(0.95, 0.62, 0.30);
const vec3 kLight = vec3(0.35, 0.75, 0.56);
void main() {
    vec3 normal = normalize(cross(dFdx(place), dFdy(place)));
    float light = 0.62 + 0.38 * abs(dot(normal, kLight));
    gl_FragColor = vec4((gl_FrontFacing ? kFront : kBack) * light, 1.0);
}
)";

const char kPictureShader[] = R"(
precision highp float;
in vec2 uv;
in lowp vec4 color;
uniform sampler2D Texture0;
uniform float TexCoordOffset;
void main() {
    gl_FragColor = vec4(texture2D(Texture0, uv + TexCoordOffset).rgb, color.a);
}
)";

const char kVertexColorShader[] = R"(
in lowp vec4 color;
void main() {
    gl_FragColor = color;
}
)";

const char kOneColorShader[] = R"(
uniform lowp vec4 UniformColor;
void main() {
    gl_FragColor = UniformColor;
}
)";
