#pragma once

/// \file
/// For programs that play the part of Android around an application's code on Linux: they start the
/// Java machine, and see what the code's decoder does, which the code itself may well hide.
///
/// A program that reads files wants every picture of them, where an application that plays live
/// video wants the newest one. In lock-step a decoder gives each picture to the window only after
/// the one before was shown, so that the pictures wait and not the program:
///
///     HostJava_start                                       once
///     … the application's code makes its decoder …
///     HostDecoder_acquire, HostDecoder_setLockStep
///     for each unit of the file:
///         until HostDecoder_waitForInput says HOST_READY:  show the next picture if there is one
///         … the application's code queues the unit …
///     HostDecoder_endStream, likewise
///     while HostDecoder_waitForFrame says HOST_READY:      show it
///
/// where to show a picture is whatever makes the application's code call updateTexImage() once.

#include <jni.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Where the Java machine and the platform are; null members stand for the defaults.
typedef struct HostJavaOptions {
    const char* javaHome;     ///< Of a JDK or JRE. Default: $JAVA_HOME, or else the system's.
    const char* classPath;    ///< Default: android.jar beside libmediandk.so.
    const char* libraryPath;  ///< Of libandroid.so's directory. Default: libmediandk.so's.
    int checkJni;             ///< Not 0: wrong JNI calls end the process, doubtful ones are told.
} HostJavaOptions;

/// Starts the process's Java machine, to which the calling thread is then attached. It lives until
/// the process ends: there can be one only, and only once. \thread any, one at a time.
///
/// \param options may be null
/// \param error   receives one line, cut to \p errorSize bytes, where there is no machine; may be
///                null
/// \return null where it cannot be started
JavaVM* HostJava_start(const HostJavaOptions* options, char* error, size_t errorSize);

/// A look at a decoder: a reference of its own, which keeps nothing alive but what the calls here
/// need. All calls on one may come from any thread, at the same time too.
typedef struct HostDecoder HostDecoder;

/// How a wait ended.
typedef enum HostResult {
    HOST_READY = 0,
    HOST_TIMED_OUT = 1,
    HOST_ENDED = 2,   ///< All pictures of a stream whose end was told are out.
    HOST_CLOSED = 3,  ///< The decoder is not started, or not any more.
} HostResult;

/// What became of the pictures that a decoder had to show, since its creation.
typedef struct HostFrames {
    int64_t delivered;  ///< Given to the window.
    int64_t latched;    ///< Shown by updateTexImage(); the others gave way to newer ones.
    int64_t unit;       ///< Which unit, counted from 0 at start or flush, gave the newest picture.
} HostFrames;

/// The decoder that the calling thread created last, if it was not deleted yet.
/// \return null where there is none. To be given to HostDecoder_release.
HostDecoder* HostDecoder_acquire(void);

/// Null is allowed. The decoder itself goes on.
void HostDecoder_release(HostDecoder* decoder);

/// Switches lock-step on or off. While it is on, AMediaCodec_dequeueOutputBuffer gives the next
/// picture after the one before was latched, or was released without rendering; till then it waits,
/// and times out, as if there were none.
void HostDecoder_setLockStep(HostDecoder* decoder, int on);

/// Switches stepping on or off: lock-step for programs that show a picture more than once. The next
/// picture comes after HostDecoder_step, however often updateTexImage() was called, and gives way
/// to it if it was not shown at all. The first one comes by itself. Ends lock-step, and is ended by
/// it.
void HostDecoder_setStepping(HostDecoder* decoder, int on);

/// Lets the next picture come. To be called after HostDecoder_waitForFrame told of the one before.
void HostDecoder_step(HostDecoder* decoder);

/// Tells how many pictures may come later than ones that are shown after them, as containers know.
/// Where a stream does not say, its decoder has to find out, and loses pictures that came too late
/// for their place. To be called before the first unit is queued.
void HostDecoder_setReorderDepth(HostDecoder* decoder, int pictures);

/// Bytes that one unit may have; 0 where the decoder is not started.
size_t HostDecoder_inputCapacity(HostDecoder* decoder);

/// Waits until AMediaCodec_dequeueInputBuffer would give a buffer at once.
/// \param timeoutUs microseconds; negative: without end
HostResult HostDecoder_waitForInput(HostDecoder* decoder, int64_t timeoutUs);

/// Tells that no more units come, so that the pictures held back come out. Takes an input buffer.
/// \param timeoutUs as above
HostResult HostDecoder_endStream(HostDecoder* decoder, int64_t timeoutUs);

/// Waits until more than \p seen pictures were delivered.
/// \param timeoutUs as above
/// \param frames    receives the numbers, however the wait ended; may be null
HostResult HostDecoder_waitForFrame(HostDecoder* decoder, int64_t seen, int64_t timeoutUs,
                                    HostFrames* frames);

#ifdef __cplusplus
}  // extern "C"
#endif
