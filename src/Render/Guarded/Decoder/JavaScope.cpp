#include "JavaScope.h"

#include "../../JavaEnvSlot.h"
#include "../Failure.h"

namespace {

constexpr jint kLocalReferences = 8;

JNIEnv* EnvOf(JavaVM* vm) {
    JNIEnv* env = nullptr;
    void* found = nullptr;
    if (vm->GetEnv(&found, JNI_VERSION_1_6) == JNI_OK) {
        return static_cast<JNIEnv*>(found);
    }
    const bool attached = vm->AttachCurrentThread(JavaEnvSlot{&env}, nullptr) == JNI_OK;
    Require(attached && env != nullptr, VE_ERROR_JAVA);
    return env;
}

}  // namespace

JavaScope::JavaScope(JavaVM* vm) : env_(EnvOf(vm)), pending_(env_->ExceptionOccurred()) {
    env_->ExceptionClear();
    if (env_->PushLocalFrame(kLocalReferences) != JNI_OK) {
        env_->ExceptionClear();
        if (pending_ != nullptr) {
            env_->Throw(pending_);
        }
        throw Failure{VE_ERROR_MEMORY};
    }
}

JavaScope::~JavaScope() {
    env_->ExceptionClear();
    env_->PopLocalFrame(nullptr);
    if (pending_ != nullptr) {
        env_->Throw(pending_);
        env_->DeleteLocalRef(pending_);
    }
}

void JavaScope::check() const {
    require(env_->ExceptionCheck() == JNI_FALSE);
}

void JavaScope::require(bool condition) {
    Require(condition, VE_ERROR_JAVA);
}
