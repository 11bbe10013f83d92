#pragma once

#include "kernel/GlGeometry.h"

/// The edges of a mesh's triangles as lines, taken from its GL buffers: it shows what GL draws.
OVR::GlGeometry EdgesOf(const OVR::GlGeometry& mesh);
