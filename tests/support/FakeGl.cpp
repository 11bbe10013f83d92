// A GL without pictures, for the programs that link this file: it has their eglGetProcAddress. It
// gives out names, reports success and reads all that it is given, so that the sanitizers see it.
// Whoever maps a buffer must write all of it.

#include <EGL/egl.h>
#include <GLES3/gl3.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

thread_local std::vector<unsigned char*> mapped;
thread_local size_t mappedSize = 0;
thread_local GLuint lastName = 0;

/// Sanitizers that watch memory complain where it is not there, or not initialized.
void Read(const void* data, size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    if (bytes != nullptr && std::count(bytes, bytes + size, 0xA5) > 0) {
        static std::atomic<int> found{0};
        ++found;
    }
}

void Generate(GLsizei count, GLuint* names) {
    std::generate(names, names + count, [] { return ++lastName; });
}

GLuint CreateShader(GLenum) {
    return ++lastName;
}

GLuint CreateProgram() {
    return ++lastName;
}

void GetInteger(GLenum name, GLint* values) {
    switch (name) {
        case GL_NUM_EXTENSIONS: *values = 1; break;
        case GL_MAX_TEXTURE_SIZE: *values = 4096; break;
        case GL_VIEWPORT: std::fill(values, values + 4, 1); break;
        default: *values = 0; break;
    }
}

void GetBoolean(GLenum, GLboolean* values) {
    std::fill(values, values + 4, GLboolean{GL_TRUE});
}

void GetOne(GLuint, GLenum, GLint* value) {
    *value = 1;
}

void GetInfoLog(GLuint, GLsizei size, GLsizei*, GLchar* log) {
    std::fill(log, log + size, '\0');
}

const GLubyte* AsText(const char* text) {
    return reinterpret_cast<const GLubyte*>(text);
}

const GLubyte* GetString(GLenum) {
    return AsText("OpenGL ES 3.2");
}

const GLubyte* GetExtension(GLenum, GLuint) {
    return AsText("GL_OES_EGL_image_external");
}

void* Map(GLenum, GLintptr, GLsizeiptr length, GLbitfield) {
    mappedSize = static_cast<size_t>(length);
    mapped.push_back(static_cast<unsigned char*>(std::malloc(mappedSize)));
    return mapped.back();
}

GLboolean Unmap(GLenum) {
    Read(mapped.back(), mappedSize);
    std::free(mapped.back());
    mapped.pop_back();
    return GL_TRUE;
}

void BufferData(GLenum, GLsizeiptr size, const void* data, GLenum) {
    Read(data, static_cast<size_t>(size));
}

void BufferSubData(GLenum, GLintptr, GLsizeiptr size, const void* data) {
    Read(data, static_cast<size_t>(size));
}

void TexSubImage(GLenum, GLint, GLint, GLint, GLsizei width, GLsizei height, GLenum format, GLenum,
                 const void* pixels) {
    Read(pixels,
         static_cast<size_t>(width) * static_cast<size_t>(height) * (format == GL_RGBA ? 4 : 3));
}

void Matrices(GLint, GLsizei count, GLboolean, const GLfloat* values) {
    Read(values, static_cast<size_t>(count) * 16 * sizeof(GLfloat));
}

void Source(GLuint, GLsizei count, const GLchar* const* texts, const GLint*) {
    std::for_each(texts, texts + count, [](const char* text) { Read(text, std::strlen(text)); });
}

GLenum Complete(GLenum) {
    return GL_FRAMEBUFFER_COMPLETE;
}

/// All other entries, whatever their arguments.
__attribute__((no_sanitize("undefined"))) GLuint Nothing() {
    return 0;
}

struct Entry {
    const char* name;
    __eglMustCastToProperFunctionPointerType function;
};

template <typename Function>
constexpr Entry Make(const char* name, Function* function) {
    return {name, reinterpret_cast<__eglMustCastToProperFunctionPointerType>(function)};
}

const Entry kEntries[] = {
    Make("glGenTextures", Generate),
    Make("glGenBuffers", Generate),
    Make("glGenVertexArrays", Generate),
    Make("glGenFramebuffers", Generate),
    Make("glCreateShader", CreateShader),
    Make("glCreateProgram", CreateProgram),
    Make("glGetIntegerv", GetInteger),
    Make("glGetBooleanv", GetBoolean),
    Make("glGetShaderiv", GetOne),
    Make("glGetProgramiv", GetOne),
    Make("glGetTexParameteriv", GetOne),
    Make("glGetShaderInfoLog", GetInfoLog),
    Make("glGetProgramInfoLog", GetInfoLog),
    Make("glGetString", GetString),
    Make("glGetStringi", GetExtension),
    Make("glMapBufferRange", Map),
    Make("glUnmapBuffer", Unmap),
    Make("glBufferData", BufferData),
    Make("glBufferSubData", BufferSubData),
    Make("glTexSubImage2D", TexSubImage),
    Make("glUniformMatrix4fv", Matrices),
    Make("glShaderSource", Source),
    Make("glCheckFramebufferStatus", Complete),
};

}  // namespace

__eglMustCastToProperFunctionPointerType eglGetProcAddress(const char* name) {
    const auto* entry =
        std::find_if(std::begin(kEntries), std::end(kEntries),
                     [name](const Entry& e) { return std::strcmp(e.name, name) == 0; });
    return entry != std::end(kEntries) ? entry->function : Make(name, Nothing).function;
}
