#pragma once

#include <jni.h>

#include <string>

/// The process's JVM, which checks every JNI call and aborts at a wrong one.
namespace java {

/// Of the main thread.
JNIEnv* Env();

/// Clears the pending exception. \return its class's name, or "" if there is none.
std::string TakeException(JNIEnv* env);

}  // namespace java

/// A Java object, held by a global reference.
class JavaObject {
public:
    /// An exception of the constructor stays pending.
    template <class... Arguments>
    JavaObject(const char* className, const char* signature, Arguments... arguments) {
        JNIEnv* env = java::Env();
        jclass type = env->FindClass(className);
        jmethodID constructor = env->GetMethodID(type, "<init>", signature);
        jobject local = env->NewObject(type, constructor, arguments...);
        if (env->ExceptionCheck() == JNI_FALSE) {
            object_ = env->NewGlobalRef(local);
        }
    }
    ~JavaObject() { java::Env()->DeleteGlobalRef(object_); }
    JavaObject(const JavaObject&) = delete;
    JavaObject& operator=(const JavaObject&) = delete;

    jobject Get() const { return object_; }
    jmethodID Method(JNIEnv* env, const char* name, const char* signature) const;

    /// Calls a method without parameters and result. \return the class of its exception, or "".
    std::string Call(const char* name) const;
    bool CallBoolean(const char* name) const;
    jlong CallLong(const char* name) const;

private:
    jobject object_ = nullptr;
};
