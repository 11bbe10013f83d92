#pragma once

#include <cstddef>

#include "kernel/Export.h"

namespace OVR {

/// Where all containers of the kernel get their memory. Replaceable through System::Init.
///
/// \thread every operation may be called from any thread.
class OVR_EXPORT Allocator {
public:
    virtual ~Allocator();

    /// \return \p size bytes aligned as malloc aligns, or null.
    virtual void* Alloc(size_t size) = 0;
    /// As Alloc; \p file and \p line name the caller for allocators that keep track.
    virtual void* AllocDebug(size_t size, const char* file, unsigned line);
    /// Moves the block \p p of Alloc to \p newSize bytes; null when there is no room, \p p then
    /// stays.
    virtual void* Realloc(void* p, size_t newSize) = 0;
    /// Releases a block of Alloc, AllocDebug or Realloc.
    virtual void Free(void* p) = 0;

    /// \param align bytes; less than 4 counts as 4.
    /// \return \p size bytes at a multiple of \p align, for FreeAligned; or null.
    virtual void* AllocAligned(size_t size, size_t align);
    /// Releases a block of AllocAligned. Null is not accepted.
    virtual void FreeAligned(void* p);

    /// Called by System::Destroy before the allocator is taken out.
    virtual void onSystemShutdown();

    /// The allocator in use; null outside System::Init … System::Destroy.
    static Allocator* pInstance;
};

/// The process heap: malloc, realloc, free.
class OVR_EXPORT DefaultAllocator : public Allocator {
public:
    ~DefaultAllocator() override;

    void* Alloc(size_t size) override;
    void* AllocDebug(size_t size, const char* file, unsigned line) override;
    void* Realloc(void* p, size_t newSize) override;
    void Free(void* p) override;

    /// The one default allocator, made on first call and destroyed at process exit or unload.
    static DefaultAllocator* InitSystemSingleton();
};

}  // namespace OVR
