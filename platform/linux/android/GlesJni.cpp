// The native methods of android.opengl.GLES20 and GLES30.
#include <GLES3/gl3.h>
#include <android_opengl_GLES20.h>
#include <android_opengl_GLES30.h>

#include <vector>

namespace {

std::vector<GLuint> Names(JNIEnv* env, jintArray array, jint offset, jint count) {
    std::vector<GLuint> names(static_cast<size_t>(count));
    env->GetIntArrayRegion(array, offset, count, reinterpret_cast<jint*>(names.data()));
    return names;
}

template <class Function>
void Generate(JNIEnv* env, jint count, jintArray array, jint offset, Function generate) {
    std::vector<GLuint> names(static_cast<size_t>(count));
    generate(count, names.data());
    env->SetIntArrayRegion(array, offset, count, reinterpret_cast<const jint*>(names.data()));
}

GLenum Enum(jint value) {
    return static_cast<GLenum>(value);
}

}  // namespace

extern "C" {

void Java_android_opengl_GLES20_glBindFramebuffer(JNIEnv* /*env*/, jclass /*type*/, jint target,
                                                  jint framebuffer) {
    glBindFramebuffer(Enum(target), static_cast<GLuint>(framebuffer));
}

void Java_android_opengl_GLES20_glBindTexture(JNIEnv* /*env*/, jclass /*type*/, jint target,
                                              jint texture) {
    glBindTexture(Enum(target), static_cast<GLuint>(texture));
}

void Java_android_opengl_GLES20_glClear(JNIEnv* /*env*/, jclass /*type*/, jint mask) {
    glClear(static_cast<GLbitfield>(mask));
}

void Java_android_opengl_GLES20_glClearColor(JNIEnv* /*env*/, jclass /*type*/, jfloat red,
                                             jfloat green, jfloat blue, jfloat alpha) {
    glClearColor(red, green, blue, alpha);
}

void Java_android_opengl_GLES20_glDeleteFramebuffers(JNIEnv* env, jclass /*type*/, jint count,
                                                     jintArray names, jint offset) {
    glDeleteFramebuffers(count, Names(env, names, offset, count).data());
}

void Java_android_opengl_GLES20_glDeleteTextures(JNIEnv* env, jclass /*type*/, jint count,
                                                 jintArray names, jint offset) {
    glDeleteTextures(count, Names(env, names, offset, count).data());
}

void Java_android_opengl_GLES20_glFramebufferTexture2D(JNIEnv* /*env*/, jclass /*type*/,
                                                       jint target, jint attachment,
                                                       jint textureTarget, jint texture,
                                                       jint level) {
    glFramebufferTexture2D(Enum(target), Enum(attachment), Enum(textureTarget),
                           static_cast<GLuint>(texture), level);
}

void Java_android_opengl_GLES20_glGenFramebuffers(JNIEnv* env, jclass /*type*/, jint count,
                                                  jintArray names, jint offset) {
    Generate(env, count, names, offset, glGenFramebuffers);
}

void Java_android_opengl_GLES20_glGenTextures(JNIEnv* env, jclass /*type*/, jint count,
                                              jintArray names, jint offset) {
    Generate(env, count, names, offset, glGenTextures);
}

void Java_android_opengl_GLES20_glReadPixels(JNIEnv* env, jclass /*type*/, jint x, jint y,
                                             jint width, jint height, jint format, jint kind,
                                             jobject pixels) {
    glReadPixels(x, y, width, height, Enum(format), Enum(kind),
                 env->GetDirectBufferAddress(pixels));
}

void Java_android_opengl_GLES20_glTexParameteri(JNIEnv* /*env*/, jclass /*type*/, jint target,
                                                jint name, jint value) {
    glTexParameteri(Enum(target), Enum(name), value);
}

void Java_android_opengl_GLES30_glBlitFramebuffer(JNIEnv* /*env*/, jclass /*type*/, jint srcX0,
                                                  jint srcY0, jint srcX1, jint srcY1, jint dstX0,
                                                  jint dstY0, jint dstX1, jint dstY1, jint mask,
                                                  jint filter) {
    glBlitFramebuffer(srcX0, srcY0, srcX1, srcY1, dstX0, dstY0, dstX1, dstY1,
                      static_cast<GLbitfield>(mask), Enum(filter));
}

void Java_android_opengl_GLES20_glActiveTexture(JNIEnv* /*env*/, jclass /*type*/, jint unit) {
    glActiveTexture(Enum(unit));
}

void Java_android_opengl_GLES20_glBlendFuncSeparate(JNIEnv* /*env*/, jclass /*type*/,
                                                    jint sourceColor, jint belowColor,
                                                    jint sourceAlpha, jint belowAlpha) {
    glBlendFuncSeparate(Enum(sourceColor), Enum(belowColor), Enum(sourceAlpha), Enum(belowAlpha));
}

void Java_android_opengl_GLES20_glDisable(JNIEnv* /*env*/, jclass /*type*/, jint feature) {
    glDisable(Enum(feature));
}

void Java_android_opengl_GLES20_glDrawArrays(JNIEnv* /*env*/, jclass /*type*/, jint mode,
                                             jint first, jint count) {
    glDrawArrays(Enum(mode), first, count);
}

void Java_android_opengl_GLES20_glEnable(JNIEnv* /*env*/, jclass /*type*/, jint feature) {
    glEnable(Enum(feature));
}

jint Java_android_opengl_GLES20_glGetError(JNIEnv* /*env*/, jclass /*type*/) {
    return static_cast<jint>(glGetError());
}

void Java_android_opengl_GLES20_glGetIntegerv(JNIEnv* env, jclass /*type*/, jint name,
                                              jintArray values, jint offset) {
    GLint value = 0;
    glGetIntegerv(Enum(name), &value);
    env->SetIntArrayRegion(values, offset, 1, &value);
}

void Java_android_opengl_GLES20_glPixelStorei(JNIEnv* /*env*/, jclass /*type*/, jint name,
                                              jint value) {
    glPixelStorei(Enum(name), value);
}

void Java_android_opengl_GLES20_nativeTexSubImage2D(JNIEnv* env, jclass /*type*/, jint target,
                                                    jint level, jint x, jint y, jint width,
                                                    jint height, jint format, jint kind,
                                                    jobject pixels, jint position) {
    const auto* bytes = static_cast<const char*>(env->GetDirectBufferAddress(pixels));
    glTexSubImage2D(Enum(target), level, x, y, width, height, Enum(format), Enum(kind),
                    bytes + position);
}

void Java_android_opengl_GLES20_glViewport(JNIEnv* /*env*/, jclass /*type*/, jint x, jint y,
                                           jint width, jint height) {
    glViewport(x, y, width, height);
}

void Java_android_opengl_GLES30_glBindVertexArray(JNIEnv* /*env*/, jclass /*type*/, jint array) {
    glBindVertexArray(static_cast<GLuint>(array));
}

void Java_android_opengl_GLES30_glDeleteVertexArrays(JNIEnv* env, jclass /*type*/, jint count,
                                                     jintArray names, jint offset) {
    glDeleteVertexArrays(count, Names(env, names, offset, count).data());
}

void Java_android_opengl_GLES30_glGenVertexArrays(JNIEnv* env, jclass /*type*/, jint count,
                                                  jintArray names, jint offset) {
    Generate(env, count, names, offset, glGenVertexArrays);
}

void Java_android_opengl_GLES30_glTexStorage2D(JNIEnv* /*env*/, jclass /*type*/, jint target,
                                               jint levels, jint format, jint width, jint height) {
    glTexStorage2D(Enum(target), levels, Enum(format), width, height);
}

}  // extern "C"
