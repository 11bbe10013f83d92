#pragma once

#include "kernel/Export.h"

namespace OVR {

class Allocator;
class Log;

/// Installs and removes the log and the allocator of the process. The library installs the silent
/// default log and the default allocator when it is loaded, and removes both when it is unloaded.
///
/// \thread no other thread may use the kernel meanwhile. Containers must not outlive their
/// allocator.
struct OVR_EXPORT System {
    /// Installs both. Has no effect while an allocator is installed.
    static void Init(Log* log, Allocator* allocator);
    /// Removes the allocator and makes the default log the global one.
    static void Destroy();
    static bool IsInitialized();
};

}  // namespace OVR
