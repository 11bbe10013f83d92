// The least program that shows the first picture of a clip in a window: barestart CLIP [JVM]
// With JVM, it also starts one meanwhile.

#include <SDL.h>

#include <exception>
#include <future>
#include <iostream>
#include <stdexcept>
#include <vector>

#include "Heap.h"
#include "decode/ClipDecoder.h"
#include "decode/Jvm.h"
#include "decode/PicturePass.h"
#include "window/Startup.h"

namespace {

/// A window with a current context, of the kind that the player opens.
SDL_Window* OpenWindow(const Clip& clip) {
    SDL_SetHint(SDL_HINT_VIDEO_X11_FORCE_EGL, "1");
    SDL_SetHint(SDL_HINT_OPENGL_ES_DRIVER, "1");
    SDL_Init(SDL_INIT_VIDEO);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_ES);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 0);
    SDL_Window* window =
        SDL_CreateWindow("barestart", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, clip.width,
                         clip.height, SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE);
    if (window == nullptr || SDL_GL_CreateContext(window) == nullptr) {
        throw std::runtime_error(SDL_GetError());
    }
    SDL_GL_SetSwapInterval(1);
    return window;
}

/// Draws into a texture, as a renderer does, and from there into the window.
void Show(const AVFrame& frame, const Clip& clip, SDL_Window* window) {
    const PicturePass pass(clip, ShaderKind::kEquivalent);
    std::vector<unsigned char> pixels;
    pass.convert(frame, pixels);
    pass.draw(pixels);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    MakeProgram(ShaderKind::kLean, false, 1);
    MakeQuad(-1, 1, 1, -1);
    glBindTexture(GL_TEXTURE_2D, pass.target());
    DrawBoundQuad();
    SDL_GL_SwapWindow(window);
}

void Run(const char* path, bool startsJvm) {
    constexpr size_t kUnits = 4;  // Of which the decoder may hold some back.
    std::future<void> jvm;
    if (startsJvm) {
        jvm = std::async(std::launch::async, [] { Jvm()->DetachCurrentThread(); });
    }
    const Clip clip = LoadClip(path, kUnits);
    Startup startup("process and file");
    SDL_Window* window = OpenWindow(clip);
    startup.Note("window");
    if (jvm.valid()) {
        jvm.wait();
        startup.Note("rest of the JVM");
    }
    ClipDecoder decoder(clip);
    const AVFrame& frame = decoder.next();
    startup.Note("clip");
    Show(frame, clip, window);
    startup.Note("picture");
    std::cerr << startup.Text() << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "barestart CLIP [JVM]\n";
        return 1;
    }
    try {
        KeepLargeBlocks();
        Run(argv[1], argc > 2);
    } catch (const std::exception& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}
