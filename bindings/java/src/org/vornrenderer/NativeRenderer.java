package org.vornrenderer;

import java.nio.ByteBuffer;

/**
 * The native part. It checks no arguments; the caller is responsible for sizes, threads, lifetimes
 * and direct buffers. An int that is returned is a result, for {@link RendererException#check}.
 */
final class NativeRenderer {
    static final int NEW_PICTURE = 1;

    static {
        System.loadLibrary("vornrenderer_jni");
    }

    private NativeRenderer() {}

    /** Sets {@code created[0]}, unless it fails. A mask size of 0 means no mask. */
    static native int create(
            int texture,
            int destinationFormat,
            int source,
            int width,
            int height,
            int outputWidth,
            int outputHeight,
            int maskFormat,
            int maskWidth,
            int maskHeight,
            boolean drawLater,
            boolean drawOnce,
            boolean keepState,
            long[] created);

    /** {@link #NEW_PICTURE}, 0 for the same picture or none, or an error. Texture 0 means none. */
    static native int draw(
            long renderer,
            ByteBuffer frame,
            int framePosition,
            ByteBuffer mask,
            int maskPosition,
            int texture,
            float[] matrix,
            int rotation,
            boolean mirrored,
            float x,
            float y,
            float zoom);

    /** Texture 0 keeps the mask. */
    static native void setMask(long renderer, int texture, boolean hidden);

    /** Copies the positions. Texture 0 means no stickers. */
    static native int setStickers(long renderer, int texture, int[] positions);

    /** A copy of the positions. */
    static native int[] stickers(long renderer);

    static native long pictureTimeUs(long renderer);

    static native int queueUnit(
            long renderer,
            ByteBuffer unit,
            int position,
            int size,
            long timeUs,
            long waitUs,
            int flags);

    static native int flush(long renderer);

    /** Fills {@link DecoderState#VALUES} values, in the order in which DecoderState reads them. */
    static native int getDecoderState(long renderer, long[] values);

    static native String resultText(int result);

    static native void destroy(long renderer, boolean contextLost);
}
