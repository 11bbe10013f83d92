#include "GLErrorCheck.h"

#include <android/log.h>

#include "gl/GLES3.h"
#include "render/VELog.h"

namespace {

/// The backslash is not a separator of tags: this one reads
/// "GPUTextureFilter\VEGPUTextureFilterBase", which log filters know.
constexpr char kHeaderFile[] = "include/render/GPUTextureFilter\\VEGPUTextureFilterBase.h";

constexpr char kCheckedFile[] = "src/Render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.cpp";

}  // namespace

void CheckGLError(int line) {
    const GLenum error = GLES3::glGetError();
    if (error != GL_NO_ERROR) {
        LogWithFileTag(ANDROID_LOG_INFO, kHeaderFile, "OpenGLES error 0x%04X in %s:%i\n", error,
                       kCheckedFile, line);
    }
}
