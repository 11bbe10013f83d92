#pragma once

#include "VERendererBase.h"

/// Creates the renderer of compressed video. Null where the platform has none: each platform brings
/// its own function.
VERendererBase* CreateDecodeRenderer(int textureId, int format, VERendererMode* mode, void* javaVM);
