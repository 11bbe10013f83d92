package org.vornrenderer;

import java.nio.ByteBuffer;

/**
 * The native part. It checks no arguments; the caller is responsible for sizes, threads, lifetimes
 * and direct buffers.
 */
final class NativeRenderer {
    static {
        System.loadLibrary("vornrenderer_jni");
    }

    private NativeRenderer() {}

    /** Returns the renderer, never 0; throws on failure. A mask size of 0 means no mask. */
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

    /** Copies the positions. A negative texture means no stickers. */
    static native void setStickers(long renderer, int texture, int[] positions);

    static native void setView(long renderer, float x, float zoom);

    static native void queueUnit(long renderer, ByteBuffer unit, int position, int size);

    static native void destroy(long renderer);
}
