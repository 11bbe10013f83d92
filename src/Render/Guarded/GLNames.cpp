#include "GLNames.h"

#include "gl/GLES3.h"

GLNames::~GLNames() {
    for (; !entries_.empty(); entries_.pop_back()) {
        entries_.back().remove(entries_.back().name);
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
    entries_.push_back({remove, name});
    return name;
}
