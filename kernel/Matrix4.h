#pragma once

#include "kernel/Export.h"

namespace OVR {

/// A 4 × 4 matrix in GL's order: M[column][row], so &M[0][0] goes to glUniformMatrix4fv
/// untransposed.
template <typename T>
struct OVR_EXPORT Matrix4 {
    T M[4][4];

    static const Matrix4 IdentityValue;
};

extern template struct Matrix4<float>;
extern template struct Matrix4<double>;

}  // namespace OVR
