#pragma once

#include "render/VEExport.h"

/// Returns the CPUs that a thread may run on as a bit mask: bit n is CPU n, for CPUs 0 to 31.
///
/// \param tid kernel thread id, as gettid returns it. 0 does not mean the calling thread.
/// \return 0 for thread 0, and if the call fails.
VE_EXPORT int GetThreadAffinityMask(int tid);

/// Pins thread \p tid to the CPUs in \p mask. If that fails, logs the error and aborts the process.
///
/// \return 0.
VE_EXPORT int SetThreadAffinityMask(int tid, int mask);
