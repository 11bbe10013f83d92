#pragma once

/// \file
/// Video decoders, "video/avc" and "video/mjpeg". Signatures are those of Android's C ABI.
///
///     create -> configure -> start -> { dequeue, queue, release, flush } -> stop -> delete
///                   ^                                                        |
///                   +--------------------------------------------------------+
///
/// Every function may be called on any thread, at any time. One that does not fit the state, an
/// index that the caller does not hold, and a codec that was deleted give a negative
/// media_status_t. Time-outs are in microseconds; 0 does not wait, a negative one waits for ever.

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

    /// Results of the dequeue functions besides indices and errors.
    AMEDIACODEC_INFO_TRY_AGAIN_LATER = -1,
    AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED = -2,
    AMEDIACODEC_INFO_OUTPUT_BUFFERS_CHANGED = -3,
};

/// \return null where the type cannot be decoded.
AMediaCodec* AMediaCodec_createDecoderByType(const char* mimeType);
media_status_t AMediaCodec_delete(AMediaCodec* codec);

/// Needs the format's width and height; takes its "csd-0", "csd-1" and "max-input-size" too.
/// Without a window pictures are handed out by AMediaCodec_getOutputBuffer.
media_status_t AMediaCodec_configure(AMediaCodec* codec, const AMediaFormat* format,
                                     ANativeWindow* surface, AMediaCrypto* crypto, uint32_t flags);
media_status_t AMediaCodec_start(AMediaCodec* codec);
media_status_t AMediaCodec_stop(AMediaCodec* codec);

/// Forgets all input and output under way, buffers held by the caller included. Waits of other
/// threads end with an error.
media_status_t AMediaCodec_flush(AMediaCodec* codec);

ssize_t AMediaCodec_dequeueInputBuffer(AMediaCodec* codec, int64_t timeoutUs);
/// \return null unless the caller holds the buffer.
uint8_t* AMediaCodec_getInputBuffer(AMediaCodec* codec, size_t index, size_t* capacity);
media_status_t AMediaCodec_queueInputBuffer(AMediaCodec* codec, size_t index, off_t offset,
                                            size_t size, uint64_t timeUs, uint32_t flags);

/// AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED comes once before the first picture and before every one
/// that differs in size or colours from the one before it.
ssize_t AMediaCodec_dequeueOutputBuffer(AMediaCodec* codec, AMediaCodecBufferInfo* info,
                                        int64_t timeoutUs);
/// The picture as planes Y, U, V without padding, chroma halved both ways.
/// \return null with a window, and unless the caller holds a buffer with a picture.
uint8_t* AMediaCodec_getOutputBuffer(AMediaCodec* codec, size_t index, size_t* size);
/// Of the pictures dequeued from now on; the caller deletes it. Null before start.
AMediaFormat* AMediaCodec_getOutputFormat(AMediaCodec* codec);

/// Returns the buffer, its picture first handed to the window when \p render is true.
media_status_t AMediaCodec_releaseOutputBuffer(AMediaCodec* codec, size_t index, bool render);
/// The same with rendering, at once, under a time stamp in nanoseconds.
media_status_t AMediaCodec_releaseOutputBufferAtTime(AMediaCodec* codec, size_t index,
                                                     int64_t timestampNs);

#ifdef __cplusplus
}  // extern "C"
#endif
