#pragma once

#include <jni.h>

/// JNI calls of one function. Frees the local references and clears the exceptions of these calls.
/// An exception that was pending before is pending again afterwards.
///
/// \thread any. Scopes of one thread are nested.
class JavaScope {
public:
    /// Attaches the thread to the VM, if it is not. It stays attached. Throws Failure.
    explicit JavaScope(JavaVM* vm);
    ~JavaScope();
    JavaScope(const JavaScope&) = delete;
    JavaScope& operator=(const JavaScope&) = delete;

    JNIEnv* operator->() const { return env_; }

    /// Throws Failure if the last call threw an exception.
    void check() const;
    /// The same for a call that also fails by returning null. \return \p result.
    template <class T>
    T checked(T result) const {
        check();
        require(result != nullptr);
        return result;
    }

private:
    static void require(bool condition);

    JNIEnv* env_ = nullptr;
    jthrowable pending_ = nullptr;  ///< The caller's.
};
