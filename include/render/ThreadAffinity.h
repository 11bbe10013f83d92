#pragma once

#include "render/VEExport.h"

/// Returns the CPUs that a thread may run on as a bit mask: bit n is CPU n, for CPUs 0 to 31. With
/// CPU 31 the mask is negative.
///
/// \param tid kernel thread id, as gettid returns it. 0 does not mean the calling thread.
/// \return 0 if the call fails: \p tid is 0 or no thread, or the kernel counts more than 32 CPUs,
///         in a 64-bit process more than 64.
VE_EXPORT int GetThreadAffinityMask(int tid);

/// Pins a thread to CPUs. If that fails, logs the error and aborts the process. It fails if there
/// is no such thread, if the process may not change it, or if the thread can use no CPU of \p mask.
///
/// \param tid  kernel thread id. Here 0 is the calling thread.
/// \param mask as GetThreadAffinityMask returns it.
/// \return 0.
VE_EXPORT int SetThreadAffinityMask(int tid, int mask);
