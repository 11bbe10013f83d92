#pragma once

#include "render/VEExport.h"

/// Keeps the application's choice, and logs it. The library runs no timer queries of its own yet.
/// \thread any.
VE_EXPORT void SetAllowGpuTimerQueries(int allow);
