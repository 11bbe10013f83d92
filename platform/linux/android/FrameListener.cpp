#include "FrameListener.h"

namespace {

/// The thread's JNI environment. A thread that is not attached to the JVM is attached during the
/// lifetime of this object.
class AttachedEnv {
public:
    explicit AttachedEnv(JavaVM* vm) : vm_(vm) {
        void* env = nullptr;
        if (vm_->GetEnv(&env, JNI_VERSION_1_6) == JNI_EDETACHED) {
            attached_ = vm_->AttachCurrentThreadAsDaemon(&env, nullptr) == JNI_OK;
        }
        env_ = static_cast<JNIEnv*>(env);
    }

    ~AttachedEnv() {
        if (attached_) {
            vm_->DetachCurrentThread();
        }
    }

    AttachedEnv(const AttachedEnv&) = delete;
    AttachedEnv& operator=(const AttachedEnv&) = delete;

    JNIEnv* Get() const { return env_; }

private:
    JavaVM* vm_;
    JNIEnv* env_;
    bool attached_ = false;
};

}  // namespace

FrameListener::FrameListener(JNIEnv* env, jobject surfaceTexture)
    : surfaceTexture_(env->NewWeakGlobalRef(surfaceTexture)) {
    env->GetJavaVM(&vm_);
    jclass type = env->GetObjectClass(surfaceTexture);
    onFrameAvailable_ = env->GetMethodID(type, "onFrameAvailable", "()V");
    env->DeleteLocalRef(type);
}

FrameListener::~FrameListener() {
    const AttachedEnv env(vm_);
    if (env.Get() != nullptr) {
        env.Get()->DeleteWeakGlobalRef(surfaceTexture_);
    }
}

void FrameListener::Notify() const {
    const AttachedEnv attached(vm_);
    JNIEnv* env = attached.Get();
    jobject surfaceTexture = env != nullptr ? env->NewLocalRef(surfaceTexture_) : nullptr;
    if (surfaceTexture == nullptr) {
        return;
    }
    env->CallVoidMethod(surfaceTexture, onFrameAvailable_);
    if (env->ExceptionCheck() != JNI_FALSE) {
        // No Java caller could catch it.
        env->ExceptionDescribe();
        env->ExceptionClear();
    }
    env->DeleteLocalRef(surfaceTexture);
}
