#pragma once

#include "kernel/GlGeometry.h"

/// The edges of a mesh's triangles as lines, read from its GL buffers. The caller frees them.
OVR::GlGeometry EdgesOf(const OVR::GlGeometry& mesh);
