// Looks for leaks while all libraries are loaded. A sanitizer that Java's launcher is not linked to
// would look after they are gone, and with them the pointers to what they keep.
#include <jni.h>
#include <sanitizer/lsan_interface.h>

#include <cstdlib>

/// Called when the JVM starts.
extern "C" JNIEXPORT jint JNICALL Agent_OnLoad(JavaVM* /*vm*/, char* /*options*/,
                                               void* /*reserved*/) {
    return std::atexit(__lsan_do_leak_check);
}
