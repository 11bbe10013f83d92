#include "FakePlatform.h"

#include <android/native_window_jni.h>
#include <media/NdkMediaCodec.h>
#include <media/NdkMediaFormat.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace {

FakePlatform& Platform() {
    return FakePlatform::Get();
}

/// Notes a call to Java. One that is to fail returns null and leaves an exception.
template <typename T>
T Answer(const std::string& call) {
    Platform().note(call);
    Platform().callsWithException += Platform().exception ? 1 : 0;
    const bool fails = Platform().fails(call);
    Platform().exception = Platform().exception || fails;
    return reinterpret_cast<T>(fails ? uintptr_t{0} : uintptr_t{0x1000});
}

/// Counts what was made and is to be given back.
template <typename T>
T Kept(T made) {
    Platform().alive += made != nullptr ? 1 : 0;
    return made;
}

JNIEnv* attached;

const JNINativeInterface_ kEnvFunctions = [] {
    JNINativeInterface_ functions = {};
    functions.FindClass = [](JNIEnv*, const char* name) {
        return Answer<jclass>(std::string("FindClass ") + name);
    };
    functions.GetMethodID = [](JNIEnv*, jclass, const char* name, const char* signature) {
        return Answer<jmethodID>(std::string("GetMethodID ") + name + signature);
    };
    functions.NewObjectV = [](auto...) { return Answer<jobject>("NewObject"); };
    functions.NewGlobalRef = [](auto...) { return Kept(Answer<jobject>("NewGlobalRef")); };
    functions.DeleteGlobalRef = [](auto...) {
        --Platform().alive;
        Platform().note("DeleteGlobalRef");
    };
    functions.DeleteLocalRef = [](auto...) { Platform().note("DeleteLocalRef"); };
    functions.CallVoidMethodV = [](auto...) { Answer<jobject>("CallVoidMethod"); };
    functions.CallLongMethodV = [](auto...) -> jlong {
        return Answer<jobject>("CallLongMethod") != nullptr ? Platform().timestamp.load() : 0;
    };
    functions.GetObjectClass = [](auto...) { return Answer<jclass>("GetObjectClass"); };
    functions.NewFloatArray = [](auto...) { return Answer<jfloatArray>("NewFloatArray"); };
    functions.GetFloatArrayRegion = [](JNIEnv*, jfloatArray, jsize, jsize count, jfloat* values) {
        std::fill_n(values, count, 0.0F);
    };
    functions.ExceptionOccurred = [](auto...) {
        return reinterpret_cast<jthrowable>(uintptr_t{Platform().exception ? 0x1000U : 0U});
    };
    functions.ExceptionCheck = [](auto...) -> jboolean {
        return Platform().exception ? JNI_TRUE : JNI_FALSE;
    };
    functions.ExceptionClear = [](auto...) { Platform().exception = false; };
    functions.Throw = [](auto...) -> jint {
        Platform().exception = true;
        return JNI_OK;
    };
    functions.PushLocalFrame = [](auto...) -> jint {
        return Kept(Answer<jobject>("PushLocalFrame")) != nullptr ? JNI_OK : JNI_ERR;
    };
    functions.PopLocalFrame = [](auto...) -> jobject {
        --Platform().alive;
        return nullptr;
    };
    return functions;
}();

const JNIInvokeInterface_ kJvmFunctions = [] {
    JNIInvokeInterface_ functions = {};
    functions.AttachCurrentThread = [](JavaVM*, void** env, void*) -> jint {
        Platform().note("AttachCurrentThread");
        *env = attached;
        return Platform().fails("AttachCurrentThread") ? JNI_ERR : JNI_OK;
    };
    functions.GetEnv = [](auto...) -> jint { return JNI_EDETACHED; };
    return functions;
}();

}  // namespace

FakePlatform::FakePlatform() : env_{&kEnvFunctions}, jvm_{&kJvmFunctions} {
    attached = &env_;
}

FakePlatform& FakePlatform::Get() {
    static auto* platform = new FakePlatform;
    return *platform;
}

void FakePlatform::note(const std::string& call) {
    if (listener) {
        listener(call);
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    journal_.push_back(call);
}

std::vector<std::string> FakePlatform::takeJournal() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return std::exchange(journal_, {});
}

void FakePlatform::blockOutput() {
    const std::lock_guard<std::mutex> lock(mutex_);
    blocked_ = true;
}

void FakePlatform::unblockOutput() {
    const std::lock_guard<std::mutex> lock(mutex_);
    blocked_ = false;
    unblocked_.notify_all();
}

void FakePlatform::passOutput() {
    std::unique_lock<std::mutex> lock(mutex_);
    ++waiting_;
    unblocked_.wait(lock, [this] { return !blocked_; });
    --waiting_;
}

int FakePlatform::threadsInOutput() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return waiting_;
}

struct AMediaCodec {
    volatile int alive = 1;
};
struct AMediaFormat {};
struct ANativeWindow {};

namespace {

AMediaFormat format;
ANativeWindow window;

media_status_t Noted(const std::string& call) {
    Platform().note(call);
    return Platform().fails(call) ? AMEDIA_ERROR_UNKNOWN : AMEDIA_OK;
}

/// Handles die with delete: a sanitizer reports this look at a dead one.
bool IsAlive(const AMediaCodec* codec) {
    return codec != nullptr && codec->alive == 1;
}

}  // namespace

extern "C" {

ANativeWindow* ANativeWindow_fromSurface(JNIEnv*, jobject) {
    return Kept(Noted("ANativeWindow_fromSurface") == AMEDIA_OK ? &window : nullptr);
}

void ANativeWindow_release(ANativeWindow*) {
    --Platform().alive;
    Platform().note("ANativeWindow_release");
}

AMediaFormat* AMediaFormat_new() {
    return Kept(Noted("AMediaFormat_new") == AMEDIA_OK ? &format : nullptr);
}

media_status_t AMediaFormat_delete(AMediaFormat*) {
    --Platform().alive;
    return AMEDIA_OK;
}

bool AMediaFormat_getInt32(AMediaFormat*, const char*, int32_t* out) {
    *out = Platform().pictureSide;
    return true;
}

void AMediaFormat_setInt32(AMediaFormat*, const char* name, int32_t value) {
    Platform().note(std::string("AMediaFormat_setInt32 ") + name + " " + std::to_string(value));
}

void AMediaFormat_setString(AMediaFormat*, const char* name, const char* value) {
    Platform().note(std::string("AMediaFormat_setString ") + name + " " + value);
}

AMediaCodec* AMediaCodec_createDecoderByType(const char* type) {
    const bool made = Noted(std::string("AMediaCodec_createDecoderByType ") + type) == AMEDIA_OK;
    return Kept(made ? new AMediaCodec : nullptr);
}

media_status_t AMediaCodec_configure(AMediaCodec*, const AMediaFormat*, ANativeWindow* surface,
                                     AMediaCrypto* crypto, uint32_t flags) {
    return Noted(std::string("AMediaCodec_configure ") + (surface == &window ? "window" : "?") +
                 (crypto == nullptr ? " none " : " ? ") + std::to_string(flags));
}

media_status_t AMediaCodec_start(AMediaCodec*) {
    return Noted("AMediaCodec_start");
}

media_status_t AMediaCodec_stop(AMediaCodec* codec) {
    IsAlive(codec);
    return Noted("AMediaCodec_stop");
}

media_status_t AMediaCodec_delete(AMediaCodec* codec) {
    Platform().alive -= codec != nullptr ? 1 : 0;
    delete codec;
    Platform().note("AMediaCodec_delete");
    return AMEDIA_OK;
}

ssize_t AMediaCodec_dequeueInputBuffer(AMediaCodec* codec, int64_t timeoutUs) {
    IsAlive(codec);
    Platform().note("AMediaCodec_dequeueInputBuffer " + std::to_string(timeoutUs));
    return Platform().inputIndex;
}

uint8_t* AMediaCodec_getInputBuffer(AMediaCodec*, size_t index, size_t* capacity) {
    Platform().note("AMediaCodec_getInputBuffer " + std::to_string(index));
    *capacity = Platform().inputCapacity;
    return Platform().fails("AMediaCodec_getInputBuffer") ? nullptr : Platform().inputBuffer.data();
}

media_status_t AMediaCodec_queueInputBuffer(AMediaCodec*, size_t index, off_t offset, size_t size,
                                            uint64_t time, uint32_t flags) {
    return Noted("AMediaCodec_queueInputBuffer " + std::to_string(index) + " " +
                 std::to_string(offset) + " " + std::to_string(size) + " " + std::to_string(time) +
                 " " + std::to_string(flags));
}

ssize_t AMediaCodec_dequeueOutputBuffer(AMediaCodec* codec, AMediaCodecBufferInfo* info,
                                        int64_t timeoutUs) {
    IsAlive(codec);
    Platform().passOutput();
    Platform().outputTimeout = static_cast<long>(timeoutUs);
    ++Platform().polls;
    info->size = Platform().outputSize;
    const ssize_t index = Platform().outputIndex;
    if (index >= AMEDIACODEC_INFO_OUTPUT_BUFFERS_CHANGED) {  // Errors come at once.
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    IsAlive(codec);
    return index;
}

media_status_t AMediaCodec_releaseOutputBuffer(AMediaCodec* codec, size_t, bool render) {
    IsAlive(codec);
    ++(render ? Platform().rendered : Platform().returnedEmpty);
    return Platform().releaseStatus;
}

media_status_t AMediaCodec_releaseOutputBufferAtTime(AMediaCodec* codec, size_t index,
                                                     int64_t timestampNs) {
    Platform().timestamp = timestampNs;
    return AMediaCodec_releaseOutputBuffer(codec, index, true);
}

media_status_t AMediaCodec_flush(AMediaCodec* codec) {
    IsAlive(codec);
    return Noted("AMediaCodec_flush");
}

AMediaFormat* AMediaCodec_getOutputFormat(AMediaCodec* codec) {
    IsAlive(codec);
    return Kept(&format);
}

}  // extern "C"
