#pragma once

#include "render/VEExport.h"

/// The CPUs that a thread may run on, one bit each, CPU 0 lowest; CPUs from 32 up are not shown.
///
/// \param tid kernel thread id, as gettid returns it; 0 does not mean the calling thread.
/// \return 0 for thread 0 and after any failure.
VE_EXPORT int GetThreadAffinityMask(int tid);

/// Pins thread \p tid to the CPUs in \p mask. A thread left on the wrong CPU is treated as a fault
/// of the program: any failure is logged and aborts the process.
/// \return 0.
VE_EXPORT int SetThreadAffinityMask(int tid, int mask);
