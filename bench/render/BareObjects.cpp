#include "BareObjects.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace {

enum : GLuint { kPositionSlot, kTexCoordSlot };

/// Picture and mask have separate coordinates, since the library mirrors only the picture.
constexpr char kVertexShader[] = R"(
uniform bool mirrored;
layout(location = 0) in vec3 position;
layout(location = 1) in vec2 texCoord;
out highp vec2 pictureCoord;
#ifndef LEAN
out highp vec2 maskCoord;
#endif
void main() {
    gl_Position = vec4(SCALE * position.xy, 0.0, 1.0);
    pictureCoord = texCoord;
#ifndef LEAN
    maskCoord = texCoord;
    if (mirrored) {
        pictureCoord.x = 1.0 - texCoord.x;
    }
#endif
})";

/// One program for pictures and stickers, as in the library. A uniform selects.
constexpr char kFragmentShader[] = R"(
#ifdef LEAN
#define PRECISION highp
#else
#define PRECISION lowp
#endif
precision PRECISION sampler2D;
uniform sampler2D source;
uniform sampler2D mask;
uniform sampler2D sticker;
uniform bool isSticker;
in highp vec2 pictureCoord;
#ifdef LEAN
#define maskCoord pictureCoord
#else
in highp vec2 maskCoord;
#endif
out PRECISION vec4 color;

PRECISION vec4 pictureColor() {
    PRECISION vec4 picture = texture(source, pictureCoord);
#ifdef MASKED
    PRECISION vec4 key = texture(mask, maskCoord);
    if (key.rgb == vec3(0.0)) {
        return vec4(169.0 / 255.0, 210.0 / 255.0, 216.0 / 255.0, 0.0);
    }
    picture.a = key.a;
#endif
    return picture;
}

void main() {
#ifdef LEAN
    color = pictureColor();
#else
    if (isSticker) {
        color = texture(sticker, pictureCoord);
    } else {
        color = pictureColor();
    }
#endif
})";

/// Packed block by block, like the library's meshes. No shader reads the colors.
struct Vertices {
    float positions[4][3];
    float colors[4][4];
    float texCoords[4][2];
};

constexpr GLushort kIndices[] = {0, 3, 2, 0, 1, 3};

void Attach(GLuint program, GLenum stage, const std::string& text) {
    const GLuint shader = glCreateShader(stage);
    const char* source = text.c_str();
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    glAttachShader(program, shader);
}

void PointTo(GLuint slot, GLint components, size_t offset) {
    glEnableVertexAttribArray(slot);
    glVertexAttribPointer(slot, components, GL_FLOAT, GL_FALSE, 0,
                          reinterpret_cast<const void*>(offset));
}

}  // namespace

GLuint MakeTexture(GLenum format, int width, int height, const void* pixels, GLint filter) {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), width, height, 0, format,
                 GL_UNSIGNED_BYTE, pixels);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glBindTexture(GL_TEXTURE_2D, 0);
    return texture;
}

GLuint MakeFramebuffer(GLuint texture) {
    GLuint framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    return framebuffer;
}

GLuint MakeProgram(ShaderKind kind, bool masked, float scale) {
    const std::string head = "#version 300 es\n#define SCALE " + std::to_string(scale) + "\n" +
                             (kind == ShaderKind::kLean ? "#define LEAN\n" : "") +
                             (masked ? "#define MASKED\n" : "");
    const GLuint program = glCreateProgram();
    Attach(program, GL_VERTEX_SHADER, head + kVertexShader);
    Attach(program, GL_FRAGMENT_SHADER, head + kFragmentShader);
    glLinkProgram(program);
    GLint linked = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &linked);
    if (linked == GL_FALSE) {
        throw std::runtime_error("the bare program does not link");
    }
    glUseProgram(program);
    glUniform1i(glGetUniformLocation(program, "source"), 0);
    glUniform1i(glGetUniformLocation(program, "mask"), 1);
    glUniform1i(glGetUniformLocation(program, "sticker"), 2);
    return program;
}

BareQuad MakeQuad(float left, float right, float first, float last) {
    const Vertices vertices = {
        {{left, first, 0}, {right, first, 0}, {left, last, 0}, {right, last, 0}},
        {{1, 1, 1, 0}, {1, 1, 1, 0}, {1, 1, 1, 0}, {1, 1, 1, 0}},
        {{0, 0}, {1, 0}, {0, 1}, {1, 1}}};
    BareQuad quad;
    glGenBuffers(2, quad.buffers);
    glGenVertexArrays(1, &quad.vertexArray);
    glBindVertexArray(quad.vertexArray);
    glBindBuffer(GL_ARRAY_BUFFER, quad.buffers[0]);
    glBufferData(GL_ARRAY_BUFFER, sizeof(vertices), &vertices, GL_STATIC_DRAW);
    PointTo(kPositionSlot, 3, offsetof(Vertices, positions));
    PointTo(kTexCoordSlot, 2, offsetof(Vertices, texCoords));
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, quad.buffers[1]);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, sizeof(kIndices), kIndices, GL_STATIC_DRAW);
    return quad;
}

void DrawBoundQuad() {
    glDrawElements(GL_TRIANGLES, 6, GL_UNSIGNED_SHORT, nullptr);
}

void FreeQuad(const BareQuad& quad) {
    glDeleteVertexArrays(1, &quad.vertexArray);
    glDeleteBuffers(2, quad.buffers);
}
