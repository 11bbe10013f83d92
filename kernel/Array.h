#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>
#include <utility>

#include "kernel/Allocator.h"

namespace OVR {

/// A growable array of plain elements in memory of the kernel's allocator.
///
/// Elements are copied bytewise. None of their constructors and destructors runs: elements that
/// Resize adds are uninitialized. Throws std::bad_alloc without memory, and if a capacity does not
/// fit into 32 bits; the array then stays as it was.
template <typename T>
struct Array {
    static_assert(std::is_trivially_copyable<T>::value, "elements are copied bytewise");

    T* Data = nullptr;
    uint32_t Size = 0;
    uint32_t Capacity = 0;

    Array() = default;
    ~Array() { Reserve(0); }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
    Array(Array&& other) noexcept { Swap(other); }
    Array& operator=(Array&& other) noexcept {
        Swap(other);
        return *this;
    }

    bool IsEmpty() const { return Size == 0; }
    T& operator[](size_t index) { return Data[index]; }
    const T& operator[](size_t index) const { return Data[index]; }
    T* begin() { return Data; }
    T* end() { return Data + Size; }
    const T* begin() const { return Data; }
    const T* end() const { return Data + Size; }

    /// To grow, it reserves a quarter more than \p size. Below half of the capacity it reserves
    /// just \p size.
    // Frozen: array growth
    void Resize(uint64_t size) {
        if (size >= Capacity) {
            Reserve(std::max(size, size + size / 4));  // The sum wraps for sizes near 2^64.
        } else if (size < Size && size < Capacity / 2) {
            Reserve(size);
        }
        Size = static_cast<uint32_t>(size);
    }

    /// Makes room for \p capacity elements, rounded up to a multiple of four; 0 frees the storage.
    /// Size stays, also above the new capacity: the elements from there on are lost, so set a
    /// smaller Size before the next use.
    void Reserve(uint64_t capacity) {
        if (capacity == 0) {
            Release();
            return;
        }
        if (capacity > kMaxCapacity) {
            throw std::bad_alloc();
        }
        const auto rounded = static_cast<uint32_t>((capacity + 3) / 4 * 4);
        const size_t bytes = size_t{rounded} * sizeof(T);
        void* storage = Data == nullptr ? Allocator::pInstance->Alloc(bytes)
                                        : Allocator::pInstance->Realloc(Data, bytes);
        if (storage == nullptr) {
            throw std::bad_alloc();
        }
        Data = static_cast<T*>(storage);
        Capacity = rounded;
    }

private:
    /// A multiple of four whose bytes fit into size_t.
    static constexpr uint64_t kMaxCapacity =
        std::min<uint64_t>(UINT32_MAX, SIZE_MAX / sizeof(T)) / 4 * 4;

    void Release() {
        if (Data != nullptr) {
            Allocator::pInstance->Free(Data);
            Data = nullptr;
        }
        Capacity = 0;
    }

    void Swap(Array& other) noexcept {
        std::swap(Data, other.Data);
        std::swap(Size, other.Size);
        std::swap(Capacity, other.Capacity);
    }
};

}  // namespace OVR
