// The browser's GL functions by name.

#include <EGL/egl.h>
#include <GLES3/gl3.h>

#include <cstring>

extern "C" void* emscripten_GetProcAddress(const char* name);

namespace {

/// WebGL maps no memory. Its emulation writes whole ranges and accepts only callers that say so.
void* MapBufferRange(GLenum target, GLintptr offset, GLsizeiptr length, GLbitfield access) {
    return glMapBufferRange(target, offset, length, access | GL_MAP_INVALIDATE_BUFFER_BIT);
}

}  // namespace

__eglMustCastToProperFunctionPointerType eglGetProcAddress(const char* name) {
    using Entry = __eglMustCastToProperFunctionPointerType;
    if (std::strcmp(name, "glMapBufferRange") == 0) {
        return reinterpret_cast<Entry>(&MapBufferRange);
    }
    return reinterpret_cast<Entry>(emscripten_GetProcAddress(name));
}
