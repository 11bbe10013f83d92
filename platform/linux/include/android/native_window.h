#pragma once

/// \file
/// Windows: the producer's end of a queue of pictures. Signatures are those of Android's C ABI.
/// Results are 0 for done or a negative errno.

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ANativeWindow ANativeWindow;

typedef struct ARect {
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
} ARect;

enum {
    WINDOW_FORMAT_RGBA_8888 = 1,
};

/// What the consumer does to a buffer to show it upright. Bits: the flips come before the rotation.
enum ANativeWindowTransform {
    ANATIVEWINDOW_TRANSFORM_IDENTITY = 0,
    ANATIVEWINDOW_TRANSFORM_MIRROR_HORIZONTAL = 1,
    ANATIVEWINDOW_TRANSFORM_MIRROR_VERTICAL = 2,
    ANATIVEWINDOW_TRANSFORM_ROTATE_90 = 4,  ///< Clockwise.
    ANATIVEWINDOW_TRANSFORM_ROTATE_180 = 3,
    ANATIVEWINDOW_TRANSFORM_ROTATE_270 = 7,
};

typedef struct ANativeWindow_Buffer {
    int32_t width;
    int32_t height;
    int32_t stride;  ///< Pixels from one row to the next.
    int32_t format;
    void* bits;  ///< The first row, 4 bytes a pixel.
    uint32_t reserved[6];
} ANativeWindow_Buffer;

void ANativeWindow_acquire(ANativeWindow* window);
/// Releasing the last reference destroys the window. The consumer keeps the posted pictures.
void ANativeWindow_release(ANativeWindow* window);

int32_t ANativeWindow_getWidth(ANativeWindow* window);
int32_t ANativeWindow_getHeight(ANativeWindow* window);
int32_t ANativeWindow_getFormat(ANativeWindow* window);

/// Sets the size of the next buffers; 0, 0 selects the consumer's default.
/// \param format WINDOW_FORMAT_RGBA_8888, or 0 for the same.
int32_t ANativeWindow_setBuffersGeometry(ANativeWindow* window, int32_t width, int32_t height,
                                         int32_t format);

/// Sets the transform of the next buffers.
/// \param transform bits of ANativeWindowTransform.
int32_t ANativeWindow_setBuffersTransform(ANativeWindow* window, int32_t transform);

/// Locks a buffer, whose contents are undefined. The caller writes every pixel.
/// \param dirty grown to the whole buffer; may be null.
int32_t ANativeWindow_lock(ANativeWindow* window, ANativeWindow_Buffer* buffer, ARect* dirty);
/// Makes the locked buffer the queue's newest picture. It replaces one that was not consumed.
int32_t ANativeWindow_unlockAndPost(ANativeWindow* window);

#ifdef __cplusplus
}  // extern "C"
#endif
