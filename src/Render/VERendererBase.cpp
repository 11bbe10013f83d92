#include "VERendererBase.h"

#include "gl/GLES3.h"

VERendererBase::VERendererBase(int textureId, int /*format*/, VERendererMode* mode)
    : textureId(textureId),
      textureWidth(mode->textureWidth),
      textureHeight(mode->textureHeight),
      outputMode(mode->outputMode) {}

uint32_t VERendererBase::TargetFormat(int format) {
    return format == VE_FORMAT_RGB ? GL_RGB : GL_RGBA;
}

uint32_t VERendererBase::MaskFormat(const VERendererMode& mode) {
    return mode.maskFormat == VE_MASK_RGBA ? GL_RGBA : GL_RGB;
}
