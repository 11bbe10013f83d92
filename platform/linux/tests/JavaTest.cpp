#include "JavaTest.h"

#include <gtest/gtest.h>

#include <array>

namespace {

JavaVM* machine = nullptr;
JNIEnv* mainEnv = nullptr;

bool StartMachine() {
    std::string classPath = "-Djava.class.path=" TEST_CLASS_PATH;
    std::string libraryPath = "-Djava.library.path=" TEST_LIBRARY_PATH;
    std::string check = "-Xcheck:jni";
    std::array<JavaVMOption, 3> options = {
        {{classPath.data(), nullptr}, {libraryPath.data(), nullptr}, {check.data(), nullptr}}};
    JavaVMInitArgs arguments = {JNI_VERSION_10, options.size(), options.data(), JNI_FALSE};
    void* env = nullptr;
    const bool started = JNI_CreateJavaVM(&machine, &env, &arguments) == JNI_OK;
    mainEnv = static_cast<JNIEnv*>(env);
    return started;
}

}  // namespace

JavaVM* java::Machine() {
    return machine;
}

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

std::string JavaObject::Call(const char* name, JNIEnv* env) const {
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

jint JavaObject::IntField(const char* name) const {
    JNIEnv* env = java::Env();
    return env->GetIntField(object_, env->GetFieldID(env->GetObjectClass(object_), name, "I"));
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return StartMachine() ? RUN_ALL_TESTS() : 1;
}
