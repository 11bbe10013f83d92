#pragma once

#include "render/VERendererExt.h"

/// Thrown inside the guarded renderer, caught in its C functions.
struct Failure {
    VEResult result;
};

inline void Require(bool condition, VEResult otherwise) {
    if (!condition) {
        throw Failure{otherwise};
    }
}
