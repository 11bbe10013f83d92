#include "VEOESSurfaceTexture.h"

#include <android/log.h>

#include "gl/GLES3.h"
#include "render/VELog.h"

namespace {

constexpr char kSourceFile[] = "src/Render/OESRenderer/VEOESSurfaceTexture.cpp";
constexpr char kClassName[] = "android/graphics/SurfaceTexture";

/// Logs \p failure when \p result is null.
// Frozen: unchecked results
template <typename T>
T Checked(T result, const char* failure) {
    if (result == nullptr) {
        LogWithFileTag(ANDROID_LOG_INFO, kSourceFile, "%s", failure);
    }
    return result;
}

// Frozen: external texture
void SetParameter(GLenum name, GLenum value) {
    GLES3::glTexParameterf(GL_TEXTURE_EXTERNAL_OES, name, static_cast<GLfloat>(value));
}

}  // namespace

OESSurfaceTexture::OESSurfaceTexture(JNIEnv* env) : env(env) {
    createTexture();
    jclass javaClass = env->FindClass(kClassName);
    if (javaClass == nullptr) {
        LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                       "\n OESSurfaceTexture FindClass( %s ) failed \n", kClassName);
    }
    createJavaObject(javaClass);
    updateTexImageMethod = Checked(env->GetMethodID(javaClass, "updateTexImage", "()V"),
                                   "\n OESSurfaceTexture couldn't get updateTexImageMethodId \n");
    setDefaultBufferSizeMethod =
        Checked(env->GetMethodID(javaClass, "setDefaultBufferSize", "(II)V"),
                "\n OESSurfaceTexture couldn't get setDefaultBufferSize \n");
    env->DeleteLocalRef(javaClass);
}

void OESSurfaceTexture::createTexture() {
    GLES3::glGenTextures(1, &textureId);
    GLES3::glBindTexture(GL_TEXTURE_EXTERNAL_OES, textureId);
    SetParameter(GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    SetParameter(GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    SetParameter(GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    SetParameter(GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    GLES3::glBindTexture(GL_TEXTURE_EXTERNAL_OES, 0);
}

void OESSurfaceTexture::createJavaObject(jclass javaClass) {
    jmethodID constructor = Checked(env->GetMethodID(javaClass, "<init>", "(I)V"),
                                    "\n OESSurfaceTexture GetMethodID( <init> ) failed \n");
    jobject local = Checked(env->NewObject(javaClass, constructor, static_cast<jint>(textureId)),
                            "\n OESSurfaceTexture NewObject() failed \n");
    javaObject = Checked(env->NewGlobalRef(local), "\n OESSurfaceTexture NewGlobalRef() failed \n");
    env->DeleteLocalRef(local);
}

OESSurfaceTexture::~OESSurfaceTexture() {
    if (textureId != 0) {
        GLES3::glDeleteTextures(1, &textureId);
        textureId = 0;
    }
    if (javaObject != nullptr) {
        env->DeleteGlobalRef(javaObject);
        javaObject = nullptr;
    }
}

void OESSurfaceTexture::Update() {
    if (env != nullptr && javaObject != nullptr && updateTexImageMethod != nullptr) {
        env->CallVoidMethod(javaObject, updateTexImageMethod);
    }
}

void OESSurfaceTexture::SetDefaultBufferSize(int width, int height) {
    if (env != nullptr && javaObject != nullptr && setDefaultBufferSizeMethod != nullptr) {
        env->CallVoidMethod(javaObject, setDefaultBufferSizeMethod, width, height);
    }
}
