// All are constant-initialized: they have their values before any code of the process runs.

#include "kernel/Matrix4.h"
#include "kernel/Vector.h"

namespace OVR {

template <typename T>
const Vector2<T> Vector2<T>::ZERO = {0, 0};

template <typename T>
const Vector3<T> Vector3<T>::ZERO = {0, 0, 0};

template <typename T>
const Vector4<T> Vector4<T>::ZERO = {0, 0, 0, 0};

template <typename T>
const Matrix4<T> Matrix4<T>::IdentityValue = {
    {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};

template struct Vector2<float>;
template struct Vector2<double>;
template struct Vector3<float>;
template struct Vector3<double>;
template struct Vector4<float>;
template struct Vector4<double>;
template struct Matrix4<float>;
template struct Matrix4<double>;

}  // namespace OVR
