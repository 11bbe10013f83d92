#pragma once

#include "kernel/Export.h"

namespace OVR {

class Allocator;
class Log;

/// Installs and removes the kernel's process-wide services. The library does both by itself, when
/// it is loaded and unloaded, with the default log (silenced) and the default allocator.
///
/// \thread not safe against other use of the kernel; containers must not outlive their allocator.
struct OVR_EXPORT System {
    /// Installs both, unless an allocator is installed already: then neither is replaced.
    static void Init(Log* log, Allocator* allocator);
    /// Takes the allocator out and makes the default log the global one again.
    static void Destroy();
    static bool IsInitialized();
};

}  // namespace OVR
