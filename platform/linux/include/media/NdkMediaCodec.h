#pragma once

/// \file
/// Video decoders, "video/avc" and "video/mjpeg". Signatures are those of Android's C ABI.
///
///     create -> configure -> start -> { dequeue, queue, release, flush } -> stop -> delete
///                   ^                                                        |
///                   +--------------------------------------------------------+
///
/// Every function may be called on any thread, at any time. A call in the wrong state, with an
/// index that the caller does not hold, or with a deleted codec returns a negative media_status_t.
/// Timeouts are in microseconds: 0 does not wait, a negative one waits without limit.

#include <android/native_window.h>
#include <media/NdkMediaError.h>
#include <media/NdkMediaFormat.h>
#include <stddef.h>
#include <stdint.h>
#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct AMediaCodec AMediaCodec;
typedef struct AMediaCrypto AMediaCrypto;

typedef struct AMediaCodecBufferInfo {
    int32_t offset;
    int32_t size;
    int64_t presentationTimeUs;
    uint32_t flags;
} AMediaCodecBufferInfo;

enum {
    AMEDIACODEC_BUFFER_FLAG_CODEC_CONFIG = 2,  ///< Parameter sets only, no picture.
    AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM = 4,
    AMEDIACODEC_BUFFER_FLAG_PARTIAL_FRAME = 8,

    AMEDIACODEC_CONFIGURE_FLAG_ENCODE = 1,

    /// Results of the dequeue functions other than indices and errors.
    AMEDIACODEC_INFO_TRY_AGAIN_LATER = -1,
    AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED = -2,
    AMEDIACODEC_INFO_OUTPUT_BUFFERS_CHANGED = -3,
};

/// \return null if the type is not supported.
AMediaCodec* AMediaCodec_createDecoderByType(const char* mimeType);
media_status_t AMediaCodec_delete(AMediaCodec* codec);

/// The format must have a width and a height. "csd-0", "csd-1", "max-input-size" and
/// "rotation-degrees" are used, too. The latter turns the picture clockwise, by 0, 90, 180 or 270
/// degrees, in the window's transform only. Without a window, AMediaCodec_getOutputBuffer gives the
/// pictures.
media_status_t AMediaCodec_configure(AMediaCodec* codec, const AMediaFormat* format,
                                     ANativeWindow* surface, AMediaCrypto* crypto, uint32_t flags);
media_status_t AMediaCodec_start(AMediaCodec* codec);
media_status_t AMediaCodec_stop(AMediaCodec* codec);

/// Gives the pictures that are released from now on to another window. The codec must be configured
/// with a window.
media_status_t AMediaCodec_setOutputSurface(AMediaCodec* codec, ANativeWindow* surface);

/// Drops all input and output, including the buffers that the caller holds. Waits of other threads
/// end with an error.
media_status_t AMediaCodec_flush(AMediaCodec* codec);

ssize_t AMediaCodec_dequeueInputBuffer(AMediaCodec* codec, int64_t timeoutUs);
/// \return null unless the caller holds the buffer.
uint8_t* AMediaCodec_getInputBuffer(AMediaCodec* codec, size_t index, size_t* capacity);
media_status_t AMediaCodec_queueInputBuffer(AMediaCodec* codec, size_t index, off_t offset,
                                            size_t size, uint64_t timeUs, uint32_t flags);

/// Returns AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED before the first picture, and before every
/// picture whose size or colors differ from the previous one's.
ssize_t AMediaCodec_dequeueOutputBuffer(AMediaCodec* codec, AMediaCodecBufferInfo* info,
                                        int64_t timeoutUs);
/// The picture as planes Y, U, V without padding, chroma halved both ways.
/// \return null with a window, and unless the caller holds a buffer with a picture.
uint8_t* AMediaCodec_getOutputBuffer(AMediaCodec* codec, size_t index, size_t* size);
/// The format of the next pictures, which the caller deletes. Null before start. "width" and
/// "height" are those of the buffer. "crop-left", "crop-top", "crop-right" and "crop-bottom" are
/// the first and last column and row of the picture in it. Before the first picture, the size is
/// that of the format given to AMediaCodec_configure.
AMediaFormat* AMediaCodec_getOutputFormat(AMediaCodec* codec);

/// Returns the buffer. If \p render is true, the window gets its picture first.
media_status_t AMediaCodec_releaseOutputBuffer(AMediaCodec* codec, size_t index, bool render);
/// Renders the picture at once, with a time stamp in nanoseconds.
media_status_t AMediaCodec_releaseOutputBufferAtTime(AMediaCodec* codec, size_t index,
                                                     int64_t timestampNs);

#ifdef __cplusplus
}  // extern "C"
#endif
