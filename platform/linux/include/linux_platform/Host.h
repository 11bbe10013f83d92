#pragma once

/// \file
/// For host programs: programs that run an application's code on Linux in place of Android. A host
/// program starts the JVM and watches the decoder that the application's code creates.
///
/// Live video shows the newest picture and skips older ones. A program that reads a file shows
/// every picture, so it switches the decoder to lock-step: the decoder then gives a picture to the
/// window only after the previous one was shown.
///
///     HostJava_start                                       once
///     … the application's code creates its decoder …
///     HostDecoder_acquire, HostDecoder_setLockStep
///     for each unit of the file:
///         until HostDecoder_waitForInput returns HOST_READY:  show the next picture, if any
///         … the application's code queues the unit …
///     HostDecoder_endStream, in the same way
///     while HostDecoder_waitForFrame returns HOST_READY:      show the picture
///
/// To show a picture is to run the application's code that calls updateTexImage(), once.

#include <jni.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Where the JVM and the platform are. Null members select the defaults.
typedef struct HostJavaOptions {
    const char* javaHome;     ///< Of a JDK or JRE. Default: $JAVA_HOME, or else the system's.
    const char* classPath;    ///< Default: android.jar beside libmediandk.so.
    const char* libraryPath;  ///< Of libandroid.so's directory. Default: libmediandk.so's.
    int checkJni;             ///< Not 0: wrong JNI calls abort, suspicious ones print a warning.
} HostJavaOptions;

/// Starts the JVM and attaches the calling thread to it. A process can start one JVM, once; it runs
/// until the process ends. \thread any, one at a time.
///
/// \param options may be null
/// \param error   receives the reason of a failure as one line, cut to \p errorSize bytes; or null
/// \return null on failure
JavaVM* HostJava_start(const HostJavaOptions* options, char* error, size_t errorSize);

/// Switches strict mode on or off for the codecs and window handles that are created from now on.
/// The environment variable LINUX_PLATFORM_STRICT, with any value, switches it on from the start.
///
/// In strict mode, the platform behaves like the least tolerant devices:
/// - AMediaCodec_delete frees the handle. Using it later is a use after free, which the address
///   sanitizer reports. That includes a call that another thread has begun and that returns later,
///   which a call of the output side does even after AMediaCodec_stop. Only AMediaCodec_delete
///   accepts null; other calls crash.
/// - Each ANativeWindow_fromSurface returns a new handle. ANativeWindow_release frees it, although
///   the codec still uses the window.
/// - An input buffer is a heap block of exactly its capacity, which is "max-input-size" if the
///   format has that. AMediaCodec_queueInputBuffer frees the block.
/// - A picture's buffer is padded to a multiple of 64 columns and of 16 rows: 1920 × 1088 for
///   1920 × 1080. The padding is bright green in a window, and zeros in an output buffer. Only
///   SurfaceTexture.getTransformMatrix and the output format's crop leave it out.
/// \thread any
void HostPlatform_setStrict(int on);

/// A reference to a decoder. It stays valid after the application deletes the decoder, which is
/// then not running. All functions may be called from any thread, also at the same time.
typedef struct HostDecoder HostDecoder;

/// How a wait ended.
typedef enum HostResult {
    HOST_READY = 0,
    HOST_TIMED_OUT = 1,
    HOST_ENDED = 2,   ///< The stream was ended, and all its pictures were delivered.
    HOST_CLOSED = 3,  ///< The decoder is not running.
} HostResult;

/// Counts of a decoder's pictures since its creation.
typedef struct HostFrames {
    int64_t delivered;  ///< Given to the window.
    int64_t latched;    ///< Shown by updateTexImage(). The window replaced the others.
    int64_t unit;       ///< Number of the newest picture's unit, counted from 0 at start or flush.
} HostFrames;

/// The decoder that the calling thread created last.
/// \return null if it was deleted, or if there is none. Release it with HostDecoder_release.
HostDecoder* HostDecoder_acquire(void);

/// Drops the reference, which may be null. The decoder continues.
void HostDecoder_release(HostDecoder* decoder);

/// Switches lock-step on or off. In lock-step, AMediaCodec_dequeueOutputBuffer returns a picture
/// only after the previous one was latched, or released without rendering. Until then it waits, and
/// times out, as if there was no picture.
void HostDecoder_setLockStep(HostDecoder* decoder, int on);

/// Switches stepping on or off. Stepping is lock-step for programs that show a picture several
/// times or not at all: each HostDecoder_step allows one more picture, and the first needs none.
/// Stepping and lock-step replace each other.
void HostDecoder_setStepping(HostDecoder* decoder, int on);

/// Allows the next picture. Call it after HostDecoder_waitForFrame returned the previous one.
void HostDecoder_step(HostDecoder* decoder);

/// Sets the reorder depth: the most pictures that precede a picture in decoding order and follow it
/// in display order. Containers know it. If neither the host nor the stream states it, the decoder
/// learns it from the stream, and may lose pictures until then. Call this before the first unit.
void HostDecoder_setReorderDepth(HostDecoder* decoder, int pictures);

/// Calls of a decoder that can be made to fail, as bits.
enum HostCall {
    HOST_CALL_CREATE = 1 << 0,
    HOST_CALL_CONFIGURE = 1 << 1,
    HOST_CALL_START = 1 << 2,
    HOST_CALL_DEQUEUE_INPUT = 1 << 3,
    HOST_CALL_GET_INPUT = 1 << 4,
    HOST_CALL_QUEUE_INPUT = 1 << 5,
    HOST_CALL_DEQUEUE_OUTPUT = 1 << 6,
    HOST_CALL_RELEASE_OUTPUT = 1 << 7,
    HOST_CALL_GET_OUTPUT_FORMAT = 1 << 8,
    HOST_CALL_FLUSH = 1 << 9,
    HOST_CALL_ALL = (1 << 10) - 1,
};

/// Faults and habits of a decoder. All zero is a normal decoder.
typedef struct HostBehavior {
    uint32_t failing;           ///< Bits of HostCall. They fail at once, whatever their timeout.
    int32_t error;              ///< Result of failing calls; 0: AMEDIA_ERROR_UNKNOWN.
    int64_t failAfterPictures;  ///< They fail once so many pictures were dequeued.
    int64_t outputDelayUs;      ///< Time that each AMediaCodec_dequeueOutputBuffer takes at least.
    size_t inputCapacity;       ///< Bytes of an input buffer; 0: chosen by the platform.
    int32_t rotation;           ///< Clockwise, in degrees, in addition to the format's.
    int32_t notices;            ///< Not 0: "buffers changed", "format changed" before each picture.
} HostBehavior;

/// Sets the behavior of a decoder. A reclaimed codec, for example, fails in all calls with
/// AMEDIACODEC_ERROR_RECLAIMED. That is a positive number, also from the dequeue functions.
///
/// \param decoder  null: the next one that the calling thread creates. inputCapacity and rotation
///                 have no effect after AMediaCodec_configure.
/// \param behavior copied; null: normal.
void HostDecoder_setBehavior(HostDecoder* decoder, const HostBehavior* behavior);

/// \return the most bytes of a unit; 0 if the decoder is not running.
size_t HostDecoder_inputCapacity(HostDecoder* decoder);

/// Waits until AMediaCodec_dequeueInputBuffer would return a buffer at once.
/// \param timeoutUs microseconds; negative: no limit
HostResult HostDecoder_waitForInput(HostDecoder* decoder, int64_t timeoutUs);

/// Ends the stream, so that the decoder outputs the pictures that it holds back. Waits for an input
/// buffer and uses it.
/// \param timeoutUs as above
HostResult HostDecoder_endStream(HostDecoder* decoder, int64_t timeoutUs);

/// Waits until more than \p seen pictures were delivered.
/// \param timeoutUs as above
/// \param frames    receives the counts in any case; may be null
HostResult HostDecoder_waitForFrame(HostDecoder* decoder, int64_t seen, int64_t timeoutUs,
                                    HostFrames* frames);

#ifdef __cplusplus
}  // extern "C"
#endif
