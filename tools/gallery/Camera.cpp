#include "Camera.h"

#include <cmath>

#include "kernel/Math.h"

namespace {

constexpr float kNear = 0.05F;
constexpr float kFar = 1000.0F;

Point Minus(const Point& a, const Point& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

float Dot(const Point& a, const Point& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Point Cross(const Point& a, const Point& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Point Normalized(const Point& a) {
    const float length = std::sqrt(Dot(a, a));
    return {a.x / length, a.y / length, a.z / length};
}

Matrix Product(const Matrix& a, const Matrix& b) {
    Matrix product = {};
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            for (int i = 0; i < 4; ++i) {
                product.M[column][row] += a.M[i][row] * b.M[column][i];
            }
        }
    }
    return product;
}

Matrix View(const Camera& camera) {
    const Point& eye = camera.eye;
    const Point back = Normalized(Minus(eye, camera.target));
    const Point right = Normalized(Cross(camera.up, back));
    const Point up = Cross(back, right);
    return {{{right.x, up.x, back.x, 0},
             {right.y, up.y, back.y, 0},
             {right.z, up.z, back.z, 0},
             {-Dot(right, eye), -Dot(up, eye), -Dot(back, eye), 1}}};
}

Matrix Projection(float fovDegrees, float aspect) {
    const float scale = 1 / std::tan(fovDegrees * OVR::Math<float>::Pi / 360);
    const float depth = kNear - kFar;
    return {{{scale / aspect, 0, 0, 0},
             {0, scale, 0, 0},
             {0, 0, (kFar + kNear) / depth, -1},
             {0, 0, 2 * kFar * kNear / depth, 0}}};
}

}  // namespace

Matrix Camera::ViewProjection(float aspect) const {
    return Product(Projection(fovDegrees, aspect), View(*this));
}
