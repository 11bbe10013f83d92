#include "GLFeatures.h"

#include <EGL/egl.h>

#include <cstdio>
#include <cstring>

namespace {

bool HasExtension(const char* name) {
    GLint count = 0;
    GLES3::glGetIntegerv(GL_NUM_EXTENSIONS, &count);
    for (GLint i = 0; i < count; ++i) {
        const auto* extension = reinterpret_cast<const char*>(
            GLES3::glGetStringi(GL_EXTENSIONS, static_cast<GLuint>(i)));
        if (extension != nullptr && std::strcmp(extension, name) == 0) {
            return true;
        }
    }
    return false;
}

template <typename Function>
void LookUp(Function& entry, const char* name, const char* suffix) {
    char fullName[64];
    (void)std::snprintf(fullName, sizeof(fullName), "%s%s", name, suffix);
    entry = reinterpret_cast<Function>(eglGetProcAddress(fullName));
}

/// EGL may know names that the context does not: only those of its version and extensions count.
PerBufferEntries FindPerBufferEntries() {
    const char* suffix = GLVersion() >= 32                             ? ""
                         : HasExtension("GL_EXT_draw_buffers_indexed") ? "EXT"
                         : HasExtension("GL_OES_draw_buffers_indexed") ? "OES"
                                                                       : nullptr;
    PerBufferEntries entries;
    if (suffix != nullptr) {
        LookUp(entries.enable, "glEnablei", suffix);
        LookUp(entries.disable, "glDisablei", suffix);
        LookUp(entries.colorMask, "glColorMaski", suffix);
    }
    const bool all =
        entries.enable != nullptr && entries.disable != nullptr && entries.colorMask != nullptr;
    return all ? entries : PerBufferEntries{};
}

}  // namespace

GLFeatures::GLFeatures()
    : externalTextures(HasExtension("GL_OES_EGL_image_external")),
      perBuffer(FindPerBufferEntries()) {
    GLES3::glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maxTextureSize);
}

int GLVersion() {
    static constexpr char kPrefix[] = "OpenGL ES ";
    constexpr size_t kLength = sizeof(kPrefix) - 1;
    const auto* text = reinterpret_cast<const char*>(GLES3::glGetString(GL_VERSION));
    if (text == nullptr || std::strncmp(text, kPrefix, kLength) != 0 ||
        std::strlen(text) < kLength + 3) {
        return 0;
    }
    return 10 * (text[kLength] - '0') + (text[kLength + 2] - '0');
}
