#pragma once

#include <cstdint>

#include "gl/GLES3.h"
#include "render/VERenderer.h"

/// How the creation arguments name pixel formats, for both kinds of renderer.

inline uint32_t TargetFormat(int format) {
    return format == VE_FORMAT_RGB ? GL_RGB : GL_RGBA;
}

inline uint32_t MaskFormat(const VERendererMode& mode) {
    return mode.maskFormat == VE_MASK_RGBA ? GL_RGBA : GL_RGB;
}
