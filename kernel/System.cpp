#include "kernel/System.h"

#include "kernel/Allocator.h"
#include "kernel/Log.h"

namespace OVR {

void System::Init(Log* log, Allocator* allocator) {
    if (IsInitialized()) {
        return;
    }
    Log::SetGlobalLog(log);
    Allocator::pInstance = allocator;
}

void System::Destroy() {
    if (!IsInitialized()) {
        return;
    }
    Allocator::pInstance->onSystemShutdown();
    Allocator::pInstance = nullptr;
    Log::SetGlobalLog(Log::GetDefaultLog());
}

bool System::IsInitialized() {
    return Allocator::pInstance != nullptr;
}

}  // namespace OVR
