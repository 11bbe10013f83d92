#include "JavaTest.h"

#include <gtest/gtest.h>
#include <linux_platform/Host.h>

#include <array>
#include <cstdio>

namespace {

JNIEnv* mainEnv = nullptr;

bool StartVm() {
    const HostJavaOptions options = {nullptr, TEST_CLASS_PATH, nullptr, 1};
    std::array<char, 256> error{};
    JavaVM* vm = HostJava_start(&options, error.data(), error.size());
    if (vm == nullptr) {
        (void)std::fprintf(stderr, "%s\n", error.data());
        return false;
    }
    void* env = nullptr;
    const bool attached = vm->GetEnv(&env, JNI_VERSION_10) == JNI_OK;
    mainEnv = static_cast<JNIEnv*>(env);
    return attached;
}

}  // namespace

JNIEnv* java::Env() {
    return mainEnv;
}

std::string java::TakeException(JNIEnv* env) {
    jthrowable exception = env->ExceptionOccurred();
    if (exception == nullptr) {
        return "";
    }
    env->ExceptionClear();
    jclass type = env->GetObjectClass(exception);
    jmethodID getName =
        env->GetMethodID(env->GetObjectClass(type), "getName", "()Ljava/lang/String;");
    auto* name = static_cast<jstring>(env->CallObjectMethod(type, getName));
    if (env->ExceptionCheck() != JNI_FALSE) {
        return "an exception without a name";
    }
    const char* text = env->GetStringUTFChars(name, nullptr);
    std::string result = text;
    env->ReleaseStringUTFChars(name, text);
    return result;
}

jmethodID JavaObject::Method(JNIEnv* env, const char* name, const char* signature) const {
    return env->GetMethodID(env->GetObjectClass(object_), name, signature);
}

std::string JavaObject::Call(const char* name) const {
    JNIEnv* env = java::Env();
    env->CallVoidMethod(object_, Method(env, name, "()V"));
    return java::TakeException(env);
}

bool JavaObject::CallBoolean(const char* name) const {
    JNIEnv* env = java::Env();
    const bool result = env->CallBooleanMethod(object_, Method(env, name, "()Z")) != JNI_FALSE;
    EXPECT_EQ(java::TakeException(env), "");
    return result;
}

jlong JavaObject::CallLong(const char* name) const {
    JNIEnv* env = java::Env();
    const jlong result = env->CallLongMethod(object_, Method(env, name, "()J"));
    EXPECT_EQ(java::TakeException(env), "");
    return result;
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return StartVm() ? RUN_ALL_TESTS() : 1;
}
