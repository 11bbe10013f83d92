#pragma once

#include <jni.h>

#include <new>

/// Java exceptions for callers of native methods. Java throws them when the method returns.

inline void Throw(JNIEnv* env, const char* className, const char* message) {
    jclass type = env->FindClass(className);
    if (type != nullptr) {
        env->ThrowNew(type, message);
        env->DeleteLocalRef(type);
    }
}

inline void ThrowIllegalState(JNIEnv* env, const char* message) {
    Throw(env, "java/lang/IllegalStateException", message);
}

inline void ThrowIllegalArgument(JNIEnv* env, const char* message) {
    Throw(env, "java/lang/IllegalArgumentException", message);
}

/// Runs \p action. No C++ exception may leave a native method.
template <typename Action>
void WithJavaExceptions(JNIEnv* env, Action action) {
    try {
        action();
    } catch (const std::bad_alloc&) {
        Throw(env, "java/lang/OutOfMemoryError", "no memory for the renderer");
    }
}
