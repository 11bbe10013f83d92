#include "FakePlatform.h"

#include <android/native_window_jni.h>
#include <media/NdkMediaCodec.h>
#include <media/NdkMediaFormat.h>

#include <chrono>
#include <thread>
#include <utility>

namespace {

FakePlatform& Platform() {
    return FakePlatform::Get();
}

/// Notes the call; null when it is to fail.
template <typename T>
T Answer(const std::string& call) {
    Platform().note(call);
    return reinterpret_cast<T>(Platform().fails(call) ? uintptr_t{0} : uintptr_t{0x1000});
}

jclass FindClass(JNIEnv*, const char* name) {
    return Answer<jclass>(std::string("FindClass ") + name);
}

jmethodID GetMethodID(JNIEnv*, jclass, const char* name, const char* signature) {
    return Answer<jmethodID>(std::string("GetMethodID ") + name + signature);
}

jobject NewObjectV(JNIEnv*, jclass, jmethodID, va_list) {
    return Answer<jobject>("NewObject");
}

jobject NewGlobalRef(JNIEnv*, jobject) {
    return Answer<jobject>("NewGlobalRef");
}

void DeleteGlobalRef(JNIEnv*, jobject) {
    Platform().note("DeleteGlobalRef");
}

void DeleteLocalRef(JNIEnv*, jobject) {
    Platform().note("DeleteLocalRef");
}

void CallVoidMethodV(JNIEnv*, jobject, jmethodID, va_list) {
    Platform().note("CallVoidMethod");
}

JNIEnv* attached;

jint AttachCurrentThread(JavaVM*, void** env, void*) {
    Platform().note("AttachCurrentThread");
    *env = attached;
    return Platform().fails("AttachCurrentThread") ? JNI_ERR : JNI_OK;
}

const JNINativeInterface_ kEnvFunctions = [] {
    JNINativeInterface_ functions = {};
    functions.FindClass = FindClass;
    functions.GetMethodID = GetMethodID;
    functions.NewObjectV = NewObjectV;
    functions.NewGlobalRef = NewGlobalRef;
    functions.DeleteGlobalRef = DeleteGlobalRef;
    functions.DeleteLocalRef = DeleteLocalRef;
    functions.CallVoidMethodV = CallVoidMethodV;
    return functions;
}();

const JNIInvokeInterface_ kMachineFunctions = [] {
    JNIInvokeInterface_ functions = {};
    functions.AttachCurrentThread = AttachCurrentThread;
    return functions;
}();

}  // namespace

FakePlatform::FakePlatform() : env_{&kEnvFunctions}, machine_{&kMachineFunctions} {
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
    Platform().note("ANativeWindow_fromSurface");
    return Platform().fails("ANativeWindow_fromSurface") ? nullptr : &window;
}

void ANativeWindow_release(ANativeWindow*) {
    Platform().note("ANativeWindow_release");
}

AMediaFormat* AMediaFormat_new() {
    Platform().note("AMediaFormat_new");
    return &format;
}

void AMediaFormat_setInt32(AMediaFormat*, const char* key, int32_t value) {
    Platform().note(std::string("AMediaFormat_setInt32 ") + key + " " + std::to_string(value));
}

void AMediaFormat_setString(AMediaFormat*, const char* key, const char* value) {
    Platform().note(std::string("AMediaFormat_setString ") + key + " " + value);
}

AMediaCodec* AMediaCodec_createDecoderByType(const char* type) {
    const std::string call = std::string("AMediaCodec_createDecoderByType ") + type;
    Platform().note(call);
    return Platform().fails(call) ? nullptr : new AMediaCodec;
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
    delete codec;
    return Noted("AMediaCodec_delete");
}

ssize_t AMediaCodec_dequeueInputBuffer(AMediaCodec* codec, int64_t timeoutUs) {
    IsAlive(codec);
    Platform().note("AMediaCodec_dequeueInputBuffer " + std::to_string(timeoutUs));
    return Platform().inputIndex;
}

uint8_t* AMediaCodec_getInputBuffer(AMediaCodec*, size_t index, size_t* capacity) {
    Platform().note("AMediaCodec_getInputBuffer " + std::to_string(index));
    *capacity = 1;  // Less than it has: nothing compares it with a unit's size.
    return Platform().inputBuffer.data();
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

}  // extern "C"
