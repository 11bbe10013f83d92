#include "kernel/Allocator.h"
#include "kernel/Log.h"
#include "kernel/System.h"

namespace {

/// Starts the kernel's services when the library is loaded, and ends them when it is unloaded or
/// the process exits. The constructor creates log and allocator, so they are destroyed after this.
struct InitShutdown {
    InitShutdown() {
        OVR::Log* log = OVR::Log::GetDefaultLog();
        log->LoggingMask = 0;  // Frozen: silent kernel
        OVR::System::Init(log, OVR::DefaultAllocator::InitSystemSingleton());
    }
    ~InitShutdown() { OVR::System::Destroy(); }
    InitShutdown(const InitShutdown&) = delete;
    InitShutdown& operator=(const InitShutdown&) = delete;
};

const InitShutdown initShutdown;

}  // namespace
