// The least GL code that draws frames of a size: baredraws WIDTH HEIGHT COUNT

#include <iostream>
#include <string>
#include <vector>

#include "offscreen/OffscreenContext.h"
#include "render/BareObjects.h"

namespace {

GLuint MakeTarget(int width, int height) {
    GLuint framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                           MakeTexture(GL_RGBA, width, height, nullptr), 0);
    return framebuffer;
}

/// As decoded pictures are sampled.
GLuint MakeSource(int width, int height) {
    const GLuint source = MakeTexture(GL_RGBA, width, height, nullptr);
    glBindTexture(GL_TEXTURE_2D, source);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    return source;
}

void Draw(int width, int height, int count) {
    const std::vector<unsigned char> frame(
        size_t{4} * static_cast<size_t>(width) * static_cast<size_t>(height), 128);
    MakeTarget(width, height);
    MakeSource(width, height);
    MakeProgram(ShaderKind::kLean, false);
    MakeQuad(-1, 1, -1, 1);
    glViewport(0, 0, width, height);
    for (int i = 0; i < count; ++i) {
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE,
                        frame.data());
        glClear(GL_COLOR_BUFFER_BIT);
        DrawBoundQuad();
        glFinish();
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "baredraws WIDTH HEIGHT COUNT\n";
        return 1;
    }
    const OffscreenContext context;
    Draw(std::stoi(argv[1]), std::stoi(argv[2]), std::stoi(argv[3]));
    return 0;
}
