#pragma once

#include "render/VEExport.h"

/// Stores and logs whether GPU timer queries are allowed. The library makes no such queries, so the
/// value has no other effect.
///
/// \thread any.
VE_EXPORT void SetAllowGpuTimerQueries(int allow);
