#include "ViewTransform.h"

#include <cmath>

#include "kernel/Math.h"

namespace {

constexpr double kFieldOfViewDegrees = 47.0;
constexpr float kAspect = 1.0F;  // Frozen: square view
constexpr float kNearPlane = 0.1F;
constexpr float kFarPlane = 100.0F;

constexpr float kFarthestCamera = 3.0F;
constexpr float kCameraStepPerZoom = 0.5F;

using Matrix = OVR::Matrix4<float>;
using Vector = OVR::Vector3<float>;

Vector Subtract(const Vector& a, const Vector& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

float Dot(const Vector& a, const Vector& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector Cross(const Vector& a, const Vector& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vector Normalize(const Vector& v) {
    const float length = std::sqrt(Dot(v, v));
    return {v.x / length, v.y / length, v.z / length};
}

}  // namespace

Matrix Perspective(double fovYDegrees, float aspect, float zNear, float zFar) {
    // Computed in double: the scale is the float that is nearest to 1 / tan.
    const double scale = 1.0 / std::tan(fovYDegrees * (OVR::Math<double>::Pi / 360.0));
    Matrix m = {};
    m.M[0][0] = static_cast<float>(scale / aspect);
    m.M[1][1] = static_cast<float>(scale);
    m.M[2][2] = -(zFar + zNear) / (zFar - zNear);
    m.M[2][3] = -1.0F;
    m.M[3][2] = -(2.0F * zFar * zNear) / (zFar - zNear);
    return m;
}

Matrix LookAt(const Vector& eye, const Vector& target, const Vector& up) {
    const Vector forward = Normalize(Subtract(target, eye));
    const Vector side = Normalize(Cross(forward, up));
    const Vector above = Cross(side, forward);
    return {{{side.x, above.x, -forward.x, 0.0F},
             {side.y, above.y, -forward.y, 0.0F},
             {side.z, above.z, -forward.z, 0.0F},
             {-Dot(side, eye), -Dot(above, eye), Dot(forward, eye), 1.0F}}};
}

Matrix Multiply(const Matrix& left, const Matrix& right) {
    Matrix product = {};
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            for (int k = 0; k < 4; ++k) {
                product.M[column][row] += right.M[column][k] * left.M[k][row];
            }
        }
    }
    return product;
}

Matrix CameraProjection() {
    return Perspective(kFieldOfViewDegrees, kAspect, kNearPlane, kFarPlane);
}

Matrix CameraView(float x, float y, float zoom) {
    const float distance = kFarthestCamera - kCameraStepPerZoom * zoom;
    return LookAt({x, y, distance}, {x, y, 0.0F}, {0.0F, 1.0F, 0.0F});
}
