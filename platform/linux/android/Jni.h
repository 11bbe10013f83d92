#pragma once

#include <jni.h>

/// Java keeps pointers to native objects as longs.
template <class Object>
jlong ToJava(Object* object) {
    return reinterpret_cast<jlong>(object);
}

template <class Object>
Object* FromJava(jlong value) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<Object*>(value);
}

/// The value of a field of type long.
inline jlong LongField(JNIEnv* env, jobject object, const char* name) {
    jclass type = env->GetObjectClass(object);
    const jlong value = env->GetLongField(object, env->GetFieldID(type, name, "J"));
    env->DeleteLocalRef(type);
    return value;
}

inline void Throw(JNIEnv* env, const char* className, const char* message) {
    jclass type = env->FindClass(className);
    env->ThrowNew(type, message);
    env->DeleteLocalRef(type);
}
