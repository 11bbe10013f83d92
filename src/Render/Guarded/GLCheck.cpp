#include "GLCheck.h"

#include "DecoderSource.h"
#include "Failure.h"
#include "GLFeatures.h"

namespace {

bool NeedsExternalTextures(int32_t source) {
    switch (source) {
        case VE_SOURCE_H264:
        case VE_SOURCE_MJPEG: Require(HasDecoders(), VE_ERROR_NO_DECODER); return true;
        case VE_SOURCE_TEXTURE_EXTERNAL: return true;
        case VE_SOURCE_RGB:
        case VE_SOURCE_RGBA:
        case VE_SOURCE_TEXTURE_2D: return false;
        default: throw Failure{VE_ERROR_ARGUMENT};
    }
}

}  // namespace

void RequireGLFor(int32_t source) {
    const bool external = NeedsExternalTextures(source);
    Require(GLES3::LoadGLFunctions(), VE_ERROR_GL_VERSION);
    Require(GLES3::glGetString(GL_VERSION) != nullptr, VE_ERROR_NO_CONTEXT);
    Require(GLVersion() >= 30, VE_ERROR_GL_VERSION);
    Require(!external || GLFeatures().externalTextures, VE_ERROR_NO_EXTERNAL);
}
