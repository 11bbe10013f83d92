#include "kernel/Allocator.h"
#include "kernel/Log.h"
#include "kernel/System.h"

namespace {

/// Brings the kernel's services up when the library is loaded and down when it is unloaded or the
/// process exits. Log and allocator are made in the constructor, so they are destroyed after it.
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
