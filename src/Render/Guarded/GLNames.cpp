#include "GLNames.h"

#include <cassert>

#include "gl/GLES3.h"

GLNames::~GLNames() {
    while (count_ > 0) {
        const Entry& last = entries_[--count_];
        last.remove(last.name);
    }
}

uint32_t GLNames::makeTexture() {
    uint32_t name = 0;
    GLES3::glGenTextures(1, &name);
    return keep(name, [](uint32_t texture) { GLES3::glDeleteTextures(1, &texture); });
}

uint32_t GLNames::makeBuffer() {
    uint32_t name = 0;
    GLES3::glGenBuffers(1, &name);
    return keep(name, [](uint32_t buffer) { GLES3::glDeleteBuffers(1, &buffer); });
}

uint32_t GLNames::makeVertexArray() {
    uint32_t name = 0;
    GLES3::glGenVertexArrays(1, &name);
    return keep(name, [](uint32_t array) { GLES3::glDeleteVertexArrays(1, &array); });
}

uint32_t GLNames::makeFramebuffer() {
    uint32_t name = 0;
    GLES3::glGenFramebuffers(1, &name);
    return keep(name, [](uint32_t framebuffer) { GLES3::glDeleteFramebuffers(1, &framebuffer); });
}

void GLNames::keepProgram(uint32_t program) {
    keep(program, [](uint32_t name) { GLES3::glDeleteProgram(name); });
}

uint32_t GLNames::keep(uint32_t name, Delete remove) {
    assert(count_ < kMost);
    entries_[count_++] = {remove, name};
    return name;
}
