// The native method of NextDecoder.java.
#include <jni.h>
#include <linux_platform/Host.h>

extern "C" JNIEXPORT void JNICALL Java_org_vornrenderer_NextDecoder_fails(JNIEnv* /*env*/,
                                                                          jclass /*type*/,
                                                                          jint calls, jint error,
                                                                          jlong afterPictures) {
    HostBehavior behavior = {};
    behavior.failing = static_cast<uint32_t>(calls);
    behavior.error = error;
    behavior.failAfterPictures = afterPictures;
    HostDecoder_setBehavior(nullptr, &behavior);
}
