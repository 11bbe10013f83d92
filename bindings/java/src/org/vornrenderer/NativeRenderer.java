package org.vornrenderer;

import java.nio.ByteBuffer;

/**
 * The native part. Nothing is checked here: sizes, threads and lifetime are the caller's, and
 * buffers are direct.
 */
final class NativeRenderer {
    static {
        System.loadLibrary("vornrenderer_jni");
    }

    private NativeRenderer() {}

    /** Returns the renderer, never 0; failures are thrown. Mask sizes of 0 are for no mask. */
    static native long create(
            int texture,
            int destinationFormat,
            int modeType,
            int width,
            int height,
            int maskFormat,
            int maskWidth,
            int maskHeight);

    static native void draw(
            long renderer,
            ByteBuffer frame,
            int framePosition,
            ByteBuffer mask,
            int maskPosition,
            boolean mirrored);

    /** Copies the positions. A negative texture is for no stickers. */
    static native void setStickers(long renderer, int texture, int[] positions);

    static native void setView(long renderer, float x, float zoom);

    static native void queueUnit(long renderer, ByteBuffer unit, int position, int size);

    static native void destroy(long renderer);
}
