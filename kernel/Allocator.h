#pragma once

#include <cstddef>

#include "kernel/Export.h"

namespace OVR {

/// All containers of the kernel get their memory from here. System::Init installs another one.
///
/// \thread every operation may be called from any thread.
class OVR_EXPORT Allocator {
public:
    virtual ~Allocator();

    /// \return \p size bytes aligned as malloc aligns, or null.
    virtual void* Alloc(size_t size) = 0;
    /// As Alloc; \p file and \p line are the place of the call, for allocators that keep records.
    virtual void* AllocDebug(size_t size, const char* file, unsigned line);
    /// Resizes the block \p p of Alloc to \p newSize bytes, which may move it. \return the block,
    /// or null without memory; \p p then stays valid.
    virtual void* Realloc(void* p, size_t newSize) = 0;
    /// Releases a block of Alloc, AllocDebug or Realloc.
    virtual void Free(void* p) = 0;

    /// \param align bytes, not only powers of two; less than 4 counts as 4.
    /// \return \p size bytes at a multiple of \p align, for FreeAligned. Null without memory;
    ///         if \p align does not fit into 32 bits; if the sum does not fit into size_t.
    virtual void* AllocAligned(size_t size, size_t align);
    /// Releases a block of AllocAligned. Null is not accepted.
    virtual void FreeAligned(void* p);

    /// System::Destroy calls this before it removes the allocator.
    virtual void onSystemShutdown();

    /// The allocator in use; null before System::Init and after System::Destroy.
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

    /// The only default allocator. The first call creates it; the process destroys it at exit, or
    /// when it unloads the library.
    static DefaultAllocator* InitSystemSingleton();
};

}  // namespace OVR
