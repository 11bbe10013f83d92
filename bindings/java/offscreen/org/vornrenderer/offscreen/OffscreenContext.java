package org.vornrenderer.offscreen;

import java.awt.image.BufferedImage;
import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;

/**
 * An OpenGL ES 3 context without a window, for tests and tools on the desktop. It is current on the
 * thread that created it until that thread closes it.
 *
 * <p>Pixels are RGBA in direct buffers, first row first.
 */
public final class OffscreenContext implements AutoCloseable {
    private static final int BYTES_PER_PIXEL = 4;

    static {
        System.loadLibrary("vornrenderer_offscreen");
    }

    private long context = nativeOpen();

    /**
     * Makes a context and makes it current.
     *
     * @throws IllegalStateException if there is no GL
     */
    public OffscreenContext() {}

    /** Ends the context. A second call does nothing. */
    @Override
    public void close() {
        long closing = context;
        context = 0;
        if (closing != 0) {
            nativeClose(closing);
        }
    }

    /**
     * Makes a texture.
     *
     * @return its GL name
     */
    public native int newTexture();

    /**
     * Fills a texture and sets its filters to nearest.
     *
     * @param texture GL name
     * @param width in pixels
     * @param height in pixels
     * @param pixels of the whole texture, from the start of the buffer
     * @throws IllegalArgumentException if the buffer is not direct or too small
     */
    public void fill(int texture, int width, int height, @NotNull ByteBuffer pixels) {
        if (!pixels.isDirect() || pixels.capacity() < width * height * BYTES_PER_PIXEL) {
            throw new IllegalArgumentException("no pixels for " + width + " x " + height);
        }
        nativeFill(texture, width, height, pixels);
    }

    /**
     * Reads a texture.
     *
     * @param texture GL name
     * @param width in pixels
     * @param height in pixels
     * @return its pixels, in a new buffer
     */
    @NotNull
    public ByteBuffer read(int texture, int width, int height) {
        ByteBuffer pixels = ByteBuffer.allocateDirect(width * height * BYTES_PER_PIXEL);
        nativeRead(texture, width, height, pixels);
        return pixels;
    }

    /**
     * Reads a texture as an image.
     *
     * @param texture GL name
     * @param width in pixels
     * @param height in pixels
     * @return its pixels with alpha, the first row at the top
     */
    @NotNull
    public BufferedImage readImage(int texture, int width, int height) {
        ByteBuffer rgba = read(texture, width, height);
        BufferedImage image = new BufferedImage(width, height, BufferedImage.TYPE_INT_ARGB);
        for (int i = 0; i < width * height; ++i) {
            int argb = Integer.rotateRight(rgba.getInt(BYTES_PER_PIXEL * i), Byte.SIZE);
            image.setRGB(i % width, i / width, argb);
        }
        return image;
    }

    /**
     * Sets the clear color.
     *
     * @param red 0 to 1
     * @param green 0 to 1
     * @param blue 0 to 1
     * @param alpha 0 to 1
     */
    public native void setClearColor(float red, float green, float blue, float alpha);

    /**
     * Sets GL_UNPACK_ALIGNMENT.
     *
     * @param bytes 1, 2, 4 or 8
     */
    public native void setUnpackAlignment(int bytes);

    /**
     * Returns GL_UNPACK_ALIGNMENT.
     *
     * @return 1, 2, 4 or 8
     */
    public native int getUnpackAlignment();

    private static native long nativeOpen();

    private static native void nativeClose(long context);

    private native void nativeFill(int texture, int width, int height, ByteBuffer pixels);

    private native void nativeRead(int texture, int width, int height, ByteBuffer pixels);
}
