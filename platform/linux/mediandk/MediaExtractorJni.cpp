// The native methods of android.media.MediaExtractor.
#include <android_media_MediaExtractor.h>

#include <algorithm>
#include <array>

#include "ClipFile.h"
#include "android/Jni.h"

namespace {

constexpr jint kDoesNotFit = -2;

ClipFile& File(jlong file) {
    return *FromJava<ClipFile>(file);
}

}  // namespace

extern "C" {

jlong Java_android_media_MediaExtractor_nativeCreate(JNIEnv* /*env*/, jclass /*type*/) {
    return ToJava(new ClipFile);
}

void Java_android_media_MediaExtractor_nativeDestroy(JNIEnv* /*env*/, jclass /*type*/, jlong file) {
    delete &File(file);
}

jint Java_android_media_MediaExtractor_nativeNumber(JNIEnv* env, jclass /*type*/,
                                                    jobject descriptor) {
    jclass type = env->GetObjectClass(descriptor);
    return env->GetIntField(descriptor, env->GetFieldID(type, "fd", "I"));
}

jstring Java_android_media_MediaExtractor_nativeOpen(JNIEnv* env, jclass /*type*/, jlong file,
                                                     jstring address) {
    const char* text = env->GetStringUTFChars(address, nullptr);
    const std::string error = File(file).Open(text);
    env->ReleaseStringUTFChars(address, text);
    return error.empty() ? nullptr : env->NewStringUTF(error.c_str());
}

jint Java_android_media_MediaExtractor_nativeTrackCount(JNIEnv* /*env*/, jclass /*type*/,
                                                        jlong file) {
    return File(file).TrackCount();
}

jstring Java_android_media_MediaExtractor_nativeMime(JNIEnv* env, jclass /*type*/, jlong file,
                                                     jint track) {
    return env->NewStringUTF(File(file).MimeType(track).c_str());
}

jlongArray Java_android_media_MediaExtractor_nativeVideoFormat(JNIEnv* env, jclass /*type*/,
                                                               jlong file, jint track) {
    const auto format = File(file).Format(track);
    if (!format) {
        return env->NewLongArray(0);
    }
    const std::array<jlong, 5> values = {format->width, format->height, format->rotation,
                                         format->frameRate, format->durationUs};
    jlongArray array = env->NewLongArray(values.size());
    env->SetLongArrayRegion(array, 0, values.size(), values.data());
    return array;
}

jbyteArray Java_android_media_MediaExtractor_nativeParameterSets(JNIEnv* env, jclass /*type*/,
                                                                 jlong file, jint track,
                                                                 jint index) {
    const std::vector<uint8_t> sets = File(file).ParameterSets(track, index);
    if (sets.empty()) {
        return nullptr;
    }
    const auto size = static_cast<jsize>(sets.size());
    jbyteArray array = env->NewByteArray(size);
    env->SetByteArrayRegion(array, 0, size, reinterpret_cast<const jbyte*>(sets.data()));
    return array;
}

void Java_android_media_MediaExtractor_nativeSelectTrack(JNIEnv* /*env*/, jclass /*type*/,
                                                         jlong file, jint track) {
    File(file).Select(track);
}

void Java_android_media_MediaExtractor_nativeSeek(JNIEnv* /*env*/, jclass /*type*/, jlong file,
                                                  jlong timeUs) {
    File(file).Seek(timeUs);
}

jlong Java_android_media_MediaExtractor_nativeSampleTime(JNIEnv* /*env*/, jclass /*type*/,
                                                         jlong file) {
    return File(file).TimeUs();
}

jint Java_android_media_MediaExtractor_nativeReadSample(JNIEnv* env, jclass /*type*/, jlong file,
                                                        jobject buffer, jint offset,
                                                        jint capacity) {
    const std::vector<uint8_t>* unit = File(file).Unit();
    if (unit == nullptr) {
        return -1;
    }
    const auto size = static_cast<jint>(unit->size());
    if (size > capacity - offset) {
        return kDoesNotFit;
    }
    std::copy(unit->begin(), unit->end(),
              static_cast<uint8_t*>(env->GetDirectBufferAddress(buffer)) + offset);
    return size;
}

jboolean Java_android_media_MediaExtractor_nativeAdvance(JNIEnv* /*env*/, jclass /*type*/,
                                                         jlong file) {
    return static_cast<jboolean>(File(file).Advance());
}

}  // extern "C"
