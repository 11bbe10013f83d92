// WebGL maps no memory. Tests read buffers back through maps.

#include "MapForReading.h"

#include <emscripten.h>

#include <utility>
#include <vector>

#include "gl/GLES3.h"

namespace {

EM_JS(void, ReadBuffer, (GLenum target, GLintptr offset, void* to, GLsizeiptr bytes),
      { GLctx.getBufferSubData(target, offset, HEAPU8, to, bytes); });

decltype(GLES3::glMapBufferRange) mapForWriting;
decltype(GLES3::glUnmapBuffer) unmapWritten;
std::vector<unsigned char> mapped;

void* Map(GLenum target, GLintptr offset, GLsizeiptr length, GLbitfield access) {
    if ((access & GL_MAP_READ_BIT) == 0) {
        return mapForWriting(target, offset, length, access);
    }
    mapped.resize(static_cast<size_t>(length));
    ReadBuffer(target, offset, mapped.data(), length);
    return mapped.data();
}

GLboolean Unmap(GLenum target) {
    const bool wasRead = !mapped.empty();
    mapped.clear();
    return wasRead ? GLboolean{GL_TRUE} : unmapWritten(target);
}

}  // namespace

void MapForReading() {
    GLES3::LoadGLFunctions();
    mapForWriting = std::exchange(GLES3::glMapBufferRange, Map);
    unmapWritten = std::exchange(GLES3::glUnmapBuffer, Unmap);
}
