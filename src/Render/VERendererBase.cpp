#include "VERendererBase.h"

VERendererBase::VERendererBase(int textureId, int /*format*/, VERendererMode* mode)
    : textureId(textureId),
      textureWidth(mode->textureWidth),
      textureHeight(mode->textureHeight),
      outputMode(mode->outputMode) {}
