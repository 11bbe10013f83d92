#include "JavaSurface.h"

#include "../Failure.h"

JavaObject::~JavaObject() {
    try {
        const JavaScope java(vm_);
        java->CallVoidMethod(object_, release_);
        java->ExceptionClear();
        java->DeleteGlobalRef(object_);
    } catch (const Failure&) {
        // Without memory for JNI's own needs the object stays with the collector.
    }
}

void JavaObject::keep(const JavaScope& java, jclass type, jobject local) {
    release_ = java.checked(java->GetMethodID(type, "release", "()V"));
    object_ = java.checked(java->NewGlobalRef(local));
}

JavaMatrix::JavaMatrix(JavaVM* vm) : vm_(vm) {
    const JavaScope java(vm);
    jfloatArray local = java.checked(java->NewFloatArray(kSize));
    values_ = static_cast<jfloatArray>(java.checked(java->NewGlobalRef(local)));
}

JavaMatrix::~JavaMatrix() {
    try {
        const JavaScope java(vm_);
        java->DeleteGlobalRef(values_);
    } catch (const Failure&) {
        // As in JavaObject.
    }
}

JavaSurface::JavaSurface(JavaVM* vm, uint32_t texture)
    : vm_(vm),
      matrix_(vm),
      surfaceTexture_(vm, "android/graphics/SurfaceTexture", "(I)V", static_cast<jint>(texture)),
      surface_(vm, "android/view/Surface", "(Landroid/graphics/SurfaceTexture;)V",
               surfaceTexture_.get()) {
    const JavaScope java(vm);
    jclass type = java.checked(java->GetObjectClass(surfaceTexture_.get()));
    updateTexImage_ = java.checked(java->GetMethodID(type, "updateTexImage", "()V"));
    getTimestamp_ = java.checked(java->GetMethodID(type, "getTimestamp", "()J"));
    getTransformMatrix_ = java.checked(java->GetMethodID(type, "getTransformMatrix", "([F)V"));
}

Window JavaSurface::window() const {
    const JavaScope java(vm_);
    Window window(ANativeWindow_fromSurface(java.operator->(), surface_.get()));
    return java.checked(std::move(window));
}

int64_t JavaSurface::latch() const {
    const JavaScope java(vm_);
    java->CallVoidMethod(surfaceTexture_.get(), updateTexImage_);
    java.check();
    const jlong stamp = java->CallLongMethod(surfaceTexture_.get(), getTimestamp_);
    java.check();
    return stamp;
}

void JavaSurface::matrix(float (&matrix)[16]) const {
    const JavaScope java(vm_);
    java->CallVoidMethod(surfaceTexture_.get(), getTransformMatrix_, matrix_.get());
    java.check();
    java->GetFloatArrayRegion(matrix_.get(), 0, JavaMatrix::kSize, matrix);
    java.check();
}
