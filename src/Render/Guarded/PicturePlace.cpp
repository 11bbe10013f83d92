#include "PicturePlace.h"

#include <cstring>

namespace {

using Matrix = OVR::Matrix4<float>;

/// s' = sx·s + sy·t + s0, t' = tx·s + ty·t + t0.
Matrix Affine(float sx, float sy, float s0, float tx, float ty, float t0) {
    return {{{sx, tx, 0, 0}, {sy, ty, 0, 0}, {0, 0, 1, 0}, {s0, t0, 0, 1}}};
}

Matrix Rotation(int degrees) {
    switch (degrees) {
        case 90: return Affine(0, 1, 0, -1, 0, 1);
        case 180: return Affine(-1, 0, 1, 0, -1, 1);
        case 270: return Affine(0, -1, 1, 1, 0, 0);
        default: return IdentityPlace();
    }
}

}  // namespace

Matrix IdentityPlace() {
    return Affine(1, 0, 0, 0, 1, 0);
}

Matrix SourcePlace(const float* given) {
    if (given == nullptr) {
        return IdentityPlace();
    }
    Matrix matrix;
    std::memcpy(matrix.M, given, sizeof(matrix.M));
    return Multiply(matrix, Affine(1, 0, 0, 0, -1, 1));
}

Matrix TurnedPlace(int rotation, bool mirror) {
    const Matrix turn = Rotation(rotation);
    return mirror ? Multiply(turn, Affine(-1, 0, 1, 0, 1, 0)) : turn;
}
