#include "FakeJvm.h"

#include <array>
#include <atomic>
#include <cstdarg>
#include <memory>
#include <string>

#include "android/NativeWindow.h"

namespace {

/// A SurfaceTexture, a Surface if it has a window, or an array.
struct Object {
    std::shared_ptr<FrameQueue> queue;
    ANativeWindow* window = nullptr;
    std::atomic<int> references{0};
    int64_t timestampNs = 0;
    static inline std::atomic<int> live{0};

    Object() { ++live; }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    ~Object() {
        --live;
        if (window != nullptr) {
            ANativeWindow_release(window);
        }
    }
};

std::array<char, 2> classes;
char updateTexImage;
char other;

Object& ObjectOf(jobject object) {
    return *reinterpret_cast<Object*>(object);
}

jclass ClassOf(bool surface) {
    return reinterpret_cast<jclass>(&classes[surface ? 1 : 0]);
}

jclass FindClass(JNIEnv*, const char* name) {
    return ClassOf(std::string(name) == "android/view/Surface");
}

jclass GetObjectClass(JNIEnv*, jobject object) {
    return ClassOf(ObjectOf(object).window != nullptr);
}

jboolean IsInstanceOf(JNIEnv* env, jobject object, jclass type) {
    return static_cast<jboolean>(GetObjectClass(env, object) == type);
}

jmethodID GetMethodID(JNIEnv*, jclass, const char* name, const char*) {
    const bool update = std::string(name) == "updateTexImage";
    return reinterpret_cast<jmethodID>(update ? &updateTexImage : &other);
}

jfieldID GetFieldID(JNIEnv*, jclass, const char*, const char*) {
    return reinterpret_cast<jfieldID>(&other);
}

jlong GetLongField(JNIEnv*, jobject object, jfieldID) {
    return reinterpret_cast<jlong>(ObjectOf(object).window);
}

jobject NewObjectV(JNIEnv*, jclass type, jmethodID, va_list arguments) {
    auto object = std::make_unique<Object>();
    if (type == ClassOf(true)) {
        object->queue = ObjectOf(va_arg(arguments, jobject)).queue;
        object->window = new ANativeWindow(object->queue);
    } else {
        object->queue = std::make_shared<FrameQueue>();
    }
    return reinterpret_cast<jobject>(object.release());
}

jobject NewGlobalRef(JNIEnv*, jobject object) {
    ++ObjectOf(object).references;
    return object;
}

void DeleteGlobalRef(JNIEnv*, jobject object) {
    if (--ObjectOf(object).references == 0) {
        delete &ObjectOf(object);
    }
}

void CallVoidMethodV(JNIEnv*, jobject object, jmethodID method, va_list) {
    Object& self = ObjectOf(object);
    if (method != reinterpret_cast<jmethodID>(&updateTexImage)) {
        return;
    }
    if (auto frame = self.queue->Acquire()) {
        self.timestampNs = frame->timestampNs;
        self.queue->Release(std::move(frame));
    }
}

jlong CallLongMethodV(JNIEnv*, jobject object, jmethodID, va_list) {
    return ObjectOf(object).timestampNs;
}

jfloatArray NewFloatArray(JNIEnv*, jsize) {
    return reinterpret_cast<jfloatArray>(new Object);  // Counted as the others are.
}

void GetFloatArrayRegion(JNIEnv*, jfloatArray, jsize, jsize count, jfloat* values) {
    for (jsize i = 0; i < count; ++i) {
        values[i] = i % 5 == 0 ? 1.0F : 0.0F;
    }
}

const JNINativeInterface_ kEnvFunctions = [] {
    JNINativeInterface_ functions = {};
    functions.FindClass = FindClass;
    functions.GetObjectClass = GetObjectClass;
    functions.IsInstanceOf = IsInstanceOf;
    functions.GetMethodID = GetMethodID;
    functions.GetFieldID = GetFieldID;
    functions.GetLongField = GetLongField;
    functions.NewObjectV = NewObjectV;
    functions.NewGlobalRef = NewGlobalRef;
    functions.DeleteGlobalRef = DeleteGlobalRef;
    functions.DeleteLocalRef = [](JNIEnv*, jobject) {};
    functions.PushLocalFrame = [](JNIEnv*, jint) { return JNI_OK; };
    functions.PopLocalFrame = [](JNIEnv*, jobject) { return jobject{}; };
    functions.MonitorEnter = [](JNIEnv*, jobject) { return JNI_OK; };
    functions.MonitorExit = functions.MonitorEnter;
    functions.ExceptionOccurred = [](JNIEnv*) { return jthrowable{}; };
    functions.ExceptionCheck = [](JNIEnv*) { return jboolean{JNI_FALSE}; };
    functions.ExceptionClear = [](JNIEnv*) {};
    functions.CallVoidMethodV = CallVoidMethodV;
    functions.CallLongMethodV = CallLongMethodV;
    functions.NewFloatArray = NewFloatArray;
    functions.GetFloatArrayRegion = GetFloatArrayRegion;
    return functions;
}();

JNIEnv env = {&kEnvFunctions};

const JNIInvokeInterface_ kVmFunctions = [] {
    JNIInvokeInterface_ functions = {};
    functions.GetEnv = [](JavaVM*, void** result, jint) {
        *result = &env;
        return JNI_OK;
    };
    functions.AttachCurrentThread = [](JavaVM* self, void** result, void*) {
        return self->GetEnv(result, JNI_VERSION_1_6);
    };
    functions.DetachCurrentThread = [](JavaVM*) { return JNI_OK; };
    return functions;
}();

JavaVM vm = {&kVmFunctions};

}  // namespace

int LiveJavaObjects() {
    return Object::live;
}

JavaVM* FakeJvm() {
    return &vm;
}
