#pragma once

/// \file
/// What the programs of the documentation need besides the library: an OpenGL ES 3 context without
/// a window, a frame, a sticker, and a file for the picture that they draw. For examples only.

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GLES3/gl3.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

/// A picture: rows of R, G, B, A bytes, first row first, without padding.
struct Pixels {
    int width = 0;
    int height = 0;
    uint8_t* rgba = nullptr;
};

/// An access unit of compressed video.
struct Unit {
    std::vector<uint8_t> bytes;
    int64_t ptsUs = 0;  ///< Presentation time of its picture, in microseconds.
};

/// An OpenGL ES 3 context is current.
struct Scene {
    int texture = 0;  ///< The destination: a new name from glGenTextures.
    Pixels frame;     ///< A frame of a video.
    Pixels sticker;   ///< A small picture.

    void* javaVM = nullptr;  ///< The JavaVM*, for compressed video only.
    std::vector<Unit> clip;  ///< H.264 access units that show pictures of the frame's size.
};

namespace example {

/// The bytes of a picture.
struct Image {
    Image(int imageWidth, int imageHeight)
        : width(imageWidth), height(imageHeight), rgba(4U * imageWidth * imageHeight) {}

    Pixels View() { return {width, height, rgba.data()}; }

    int width;
    int height;
    std::vector<uint8_t> rgba;
};

/// A disk before a sky, in all colors; only the disk if \p disk says so.
inline Image Painted(int width, int height, bool disk) {
    Image image(width, height);
    uint8_t* pixel = image.rgba.data();
    for (int i = 0; i < width * height; ++i, pixel += 4) {
        const int x = i % width;
        const int y = i / width;
        const int fromMiddle =
            (2 * x - width) * (2 * x - width) + (2 * y - height) * (2 * y - height);
        const bool inside = 2 * fromMiddle < height * height;
        pixel[0] = static_cast<uint8_t>(inside ? 250 : 255 * x / width);
        pixel[1] = static_cast<uint8_t>(inside ? 200 - 150 * y / height : 255 * y / height);
        pixel[2] = static_cast<uint8_t>(inside ? 40 : 200);
        pixel[3] = disk && !inside ? 0 : 255;
    }
    return image;
}

/// Reads a PAM file with alpha, as `ffmpeg -i photo.png -pix_fmt rgba photo.pam` writes it.
/// Without a path, \p usual.
inline Image ReadPam(const char* path, Image usual) {
    if (path == nullptr) {
        return usual;
    }
    std::ifstream file(path, std::ios::binary);
    int width = 0;
    int height = 0;
    for (std::string line; std::getline(file, line) && line != "ENDHDR";) {
        std::istringstream words(line);
        std::string name;
        words >> name;
        if (name == "WIDTH") {
            words >> width;
        } else if (name == "HEIGHT") {
            words >> height;
        }
    }
    Image image(width, height);
    file.read(reinterpret_cast<char*>(image.rgba.data()),
              static_cast<std::streamsize>(image.rgba.size()));
    if (!file || width == 0) {
        std::cerr << path << " is no PAM file with alpha\n";
        std::exit(1);
    }
    return image;
}

/// Reads a texture of the size of \p image.
inline void ReadTexture(GLuint texture, Image& image) {
    GLuint framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    glReadPixels(0, 0, image.width, image.height, GL_RGBA, GL_UNSIGNED_BYTE, image.rgba.data());
    glDeleteFramebuffers(1, &framebuffer);
}

/// Writes a PPM file. A checkerboard shows where the picture is transparent.
inline bool WritePpm(const char* path, const Image& image) {
    std::ofstream file(path, std::ios::binary);
    file << "P6 " << image.width << ' ' << image.height << " 255\n";
    const uint8_t* pixel = image.rgba.data();
    for (int i = 0; i < image.width * image.height; ++i, pixel += 4) {
        const int square = i % image.width / 16 + i / image.width / 16;
        const int under = square % 2 == 0 ? 204 : 153;
        for (int channel = 0; channel < 3; ++channel) {
            const int sum = pixel[channel] * pixel[3] + under * (255 - pixel[3]);
            file.put(static_cast<char>((sum + 127) / 255));
        }
    }
    return file.flush().good();
}

/// A context without a window, current on this thread. Applications have that of their window.
class Context {
public:
    Context() : display_(eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, nullptr, nullptr)) {
        const EGLint version3[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_NONE};
        eglInitialize(display_, nullptr, nullptr);
        eglBindAPI(EGL_OPENGL_ES_API);
        context_ = eglCreateContext(display_, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, version3);
        if (eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, context_) == EGL_FALSE) {
            std::cerr << "there is no OpenGL ES 3 context without a window here\n";
            std::exit(1);
        }
    }
    ~Context() {
        eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        eglDestroyContext(display_, context_);  // The display belongs to the whole process.
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

private:
    EGLDisplay display_;
    EGLContext context_ = EGL_NO_CONTEXT;
};

/// Draws a scene with these values. \param arguments the files: frame, sticker, picture
inline int Run(void (*draw)(const Scene&), Scene scene, char** arguments) {
    const auto next = [&arguments] { return *arguments != nullptr ? *arguments++ : nullptr; };
    Image frame = ReadPam(next(), Painted(384, 288, false));
    Image sticker = ReadPam(next(), Painted(96, 96, true));
    const char* path = next();
    path = path != nullptr ? path : "picture.ppm";

    const Context context;
    GLuint texture = 0;
    glGenTextures(1, &texture);
    scene.texture = static_cast<int>(texture);
    scene.frame = frame.View();
    scene.sticker = sticker.View();
    draw(scene);
    Image picture(frame.width, frame.height);
    ReadTexture(texture, picture);
    glDeleteTextures(1, &texture);
    if (!WritePpm(path, picture)) {
        std::cerr << path << " cannot be written\n";
        return 1;
    }
    std::cout << "The picture is in " << path << '\n';
    return 0;
}

}  // namespace example

/// Runs a program: PROGRAM [FRAME.pam [STICKER.pam [PICTURE.ppm]]]. Without files, the frame and
/// the sticker are painted, and the picture is picture.ppm. \return the status for main()
inline int DrawScene(void (*draw)(const Scene&), int /*argc*/, char** argv) {
    return example::Run(draw, {}, argv + 1);
}
