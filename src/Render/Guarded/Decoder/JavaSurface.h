#pragma once

#include <android/native_window_jni.h>
#include <jni.h>

#include <cstdint>
#include <memory>

#include "JavaScope.h"

/// A global reference to a Java object that has a method release().
class JavaObject {
public:
    /// Creates an object by a constructor with one argument. Throws Failure.
    template <class Argument>
    JavaObject(JavaVM* vm, const char* className, const char* constructor, Argument argument)
        : vm_(vm) {
        const JavaScope java(vm);
        jclass type = java.checked(java->FindClass(className));
        jmethodID id = java.checked(java->GetMethodID(type, "<init>", constructor));
        keep(java, type, java.checked(java->NewObject(type, id, argument)));
    }
    /// Calls release() and drops the reference.
    ~JavaObject();
    JavaObject(const JavaObject&) = delete;
    JavaObject& operator=(const JavaObject&) = delete;

    jobject get() const { return object_; }

private:
    void keep(const JavaScope& java, jclass type, jobject local);

    JavaVM* vm_;
    jmethodID release_ = nullptr;
    jobject object_ = nullptr;
};

/// A global reference to a float[16], kept so that pictures do not allocate.
class JavaMatrix {
public:
    static constexpr jsize kSize = 16;

    /// Throws Failure.
    explicit JavaMatrix(JavaVM* vm);
    ~JavaMatrix();
    JavaMatrix(const JavaMatrix&) = delete;
    JavaMatrix& operator=(const JavaMatrix&) = delete;

    jfloatArray get() const { return values_; }

private:
    JavaVM* vm_;
    jfloatArray values_ = nullptr;
};

struct WindowRelease {
    void operator()(ANativeWindow* window) const { ANativeWindow_release(window); }
};
using Window = std::unique_ptr<ANativeWindow, WindowRelease>;

/// A SurfaceTexture on an external texture, and a Surface that feeds it.
///
/// \thread latch and matrix: the GL thread, with the context current.
class JavaSurface {
public:
    /// Throws Failure.
    JavaSurface(JavaVM* vm, uint32_t texture);

    jobject surface() const { return surface_.get(); }
    jobject surfaceTexture() const { return surfaceTexture_.get(); }
    /// The surface for the decoder. Throws Failure.
    Window window() const;

    /// Latches the newest picture. Throws Failure.
    /// \return the time stamp of the picture in the texture, in nanoseconds; 0 before the first.
    int64_t latch() const;
    /// Gives the matrix of the picture in the texture, column by column. Throws Failure.
    void matrix(float (&matrix)[16]) const;

private:
    JavaVM* vm_;
    JavaMatrix matrix_;
    JavaObject surfaceTexture_;
    JavaObject surface_;  ///< Declared last so that it is released first.
    jmethodID updateTexImage_ = nullptr;
    jmethodID getTimestamp_ = nullptr;
    jmethodID getTransformMatrix_ = nullptr;
};
