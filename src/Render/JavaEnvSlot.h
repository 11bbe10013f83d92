#pragma once

#include <jni.h>

/// A result of AttachCurrentThread: Android's headers take a JNIEnv**, those of the JDK a void**.
struct JavaEnvSlot {
    JNIEnv** env;

    operator JNIEnv**() const { return env; }
    operator void**() const { return reinterpret_cast<void**>(env); }
};
