#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "Failure.h"

/// Structs whose first member is their size, of callers that were built with another release.

/// \param given null gives a struct of zeros.
/// \return \p given at its size of today: what an older caller has not is zero. A newer caller must
///         not have set what is unknown here.
template <typename Struct>
Struct ReadStruct(const Struct* given) {
    Struct full = {};
    if (given != nullptr) {
        const size_t size = given->structSize;
        const auto* bytes = reinterpret_cast<const unsigned char*>(given);
        Require(size >= sizeof(size_t), VE_ERROR_ARGUMENT);
        Require(std::all_of(bytes + std::min(size, sizeof(Struct)), bytes + size,
                            [](unsigned char byte) { return byte == 0; }),
                VE_ERROR_ARGUMENT);
        std::memcpy(&full, bytes, std::min(size, sizeof(Struct)));
    }
    full.structSize = sizeof(Struct);
    return full;
}

/// Fills as much of \p taken as its caller knows.
template <typename Struct>
void WriteStruct(Struct full, Struct* taken) {
    full.structSize = taken->structSize;
    std::memcpy(taken, &full, std::min(full.structSize, sizeof(Struct)));
}

/// Whether a struct to be filled is there.
template <typename Struct>
bool CanWrite(const Struct* taken) {
    return taken != nullptr && taken->structSize >= sizeof(size_t);
}
