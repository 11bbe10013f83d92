#include "ExternalTexture.h"

#include <GLES3/gl3.h>
// After gl3.h, whose types it uses.
#include <GLES2/gl2ext.h>

namespace {

constexpr char kVertexShader[] = R"(#version 300 es
out vec2 place;
void main() {
    place = vec2(gl_VertexID & 1, gl_VertexID >> 1);
    gl_Position = vec4(place * 2.0 - 1.0, 0.0, 1.0);
})";

constexpr char kFragmentShader[] = R"(#version 300 es
#extension GL_OES_EGL_image_external_essl3 : require
precision highp float;
uniform samplerExternalOES image;
in vec2 place;
out vec4 color;
void main() { color = texture(image, place); })";

void Attach(GLuint program, GLenum type, const char* text) {
    const GLuint shader = glCreateShader(type);
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    glAttachShader(program, shader);
    glDeleteShader(shader);
}

GLuint NewProgram() {
    const GLuint program = glCreateProgram();
    Attach(program, GL_VERTEX_SHADER, kVertexShader);
    Attach(program, GL_FRAGMENT_SHADER, kFragmentShader);
    glLinkProgram(program);
    return program;
}

}  // namespace

std::vector<uint8_t> ReadExternal(unsigned texture, int width, int height) {
    GLuint target = 0;
    GLuint framebuffer = 0;
    glGenRenderbuffers(1, &target);
    glBindRenderbuffer(GL_RENDERBUFFER, target);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, target);

    const GLuint program = NewProgram();
    glUseProgram(program);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_EXTERNAL_OES, texture);
    glViewport(0, 0, width, height);
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());

    glDeleteProgram(program);
    glDeleteFramebuffers(1, &framebuffer);
    glDeleteRenderbuffers(1, &target);
    return pixels;
}
