#include "GLErrorCheck.h"

#include <android/log.h>

#include "gl/GLES3.h"
#include "render/VELog.h"

namespace {

// Frozen: log tags
constexpr char kHeaderFile[] = "include/render/GPUTextureFilter\\VEGPUTextureFilterBase.h";

constexpr char kCheckedFile[] = "src/Render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.cpp";

}  // namespace

void CheckGLError(DrawCheck check) {
    const GLenum error = GLES3::glGetError();
    if (error != GL_NO_ERROR) {
        LogWithFileTag(ANDROID_LOG_INFO, kHeaderFile, "OpenGLES error 0x%04X in %s:%i\n", error,
                       kCheckedFile, static_cast<int>(check));
    }
}
