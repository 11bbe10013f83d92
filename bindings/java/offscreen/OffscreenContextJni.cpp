#include <GLES3/gl3.h>
#include <org_vornrenderer_offscreen_OffscreenContext.h>

#include "JavaException.h"
#include "TightRows.h"
#include "offscreen/OffscreenContext.h"

extern "C" {

jlong Java_org_vornrenderer_offscreen_OffscreenContext_nativeOpen(JNIEnv* env, jclass /*type*/) {
    try {
        return static_cast<jlong>(reinterpret_cast<intptr_t>(new OffscreenContext));
    } catch (const OffscreenError& error) {
        ThrowIllegalState(env, error.what());
        return 0;
    }
}

void Java_org_vornrenderer_offscreen_OffscreenContext_nativeClose(JNIEnv* /*env*/, jclass /*type*/,
                                                                  jlong context) {
    delete reinterpret_cast<OffscreenContext*>(static_cast<intptr_t>(context));
}

jint Java_org_vornrenderer_offscreen_OffscreenContext_newTexture(JNIEnv* /*env*/,
                                                                 jobject /*self*/) {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    return static_cast<jint>(texture);
}

void Java_org_vornrenderer_offscreen_OffscreenContext_nativeFill(JNIEnv* env, jobject /*self*/,
                                                                 jint texture, jint width,
                                                                 jint height, jobject pixels) {
    const TightRows rows;
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(texture));
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 env->GetDirectBufferAddress(pixels));
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void Java_org_vornrenderer_offscreen_OffscreenContext_nativeRead(JNIEnv* env, jobject /*self*/,
                                                                 jint texture, jint width,
                                                                 jint height, jobject pixels) {
    GLuint framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                           static_cast<GLuint>(texture), 0);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE,
                 env->GetDirectBufferAddress(pixels));
    glDeleteFramebuffers(1, &framebuffer);
}

void Java_org_vornrenderer_offscreen_OffscreenContext_setClearColor(JNIEnv* /*env*/,
                                                                    jobject /*self*/, jfloat red,
                                                                    jfloat green, jfloat blue,
                                                                    jfloat alpha) {
    glClearColor(red, green, blue, alpha);
}

void Java_org_vornrenderer_offscreen_OffscreenContext_setUnpackAlignment(JNIEnv* /*env*/,
                                                                         jobject /*self*/,
                                                                         jint bytes) {
    glPixelStorei(GL_UNPACK_ALIGNMENT, bytes);
}

jint Java_org_vornrenderer_offscreen_OffscreenContext_getUnpackAlignment(JNIEnv* /*env*/,
                                                                         jobject /*self*/) {
    GLint alignment = 0;
    glGetIntegerv(GL_UNPACK_ALIGNMENT, &alignment);
    return alignment;
}

}  // extern "C"
