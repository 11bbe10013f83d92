package org.vornrenderer;

import android.graphics.Bitmap;
import java.nio.Buffer;
import java.nio.ByteBuffer;
import java.util.Objects;
import org.jetbrains.annotations.NotNull;

/** A copy of an image's pixels, whose memory is used again. */
final class Pixels {
    /** The place of alpha in a pixel of RGBA. */
    static final int ALPHA = 3;

    private static final int WHITE = 0x01010101; // Of the level 1.
    private static final ByteBuffer NO_BYTES = ByteBuffer.allocateDirect(0);

    private ByteBuffer bytes = NO_BYTES;
    private PixelLayout layout = PixelLayout.RGBA;
    private int width;
    private int height;

    /** Direct, from 0 to its limit. */
    @NotNull
    ByteBuffer bytes() {
        return bytes;
    }

    @NotNull
    PixelLayout layout() {
        return layout;
    }

    int width() {
        return width;
    }

    int height() {
        return height;
    }

    /**
     * Copies rows that begin at the buffer's position, which stays.
     *
     * @throws IllegalArgumentException if a size is not positive, a row is longer than the distance
     *     of rows, or the buffer ends too early
     */
    void copy(
            @NotNull ByteBuffer source,
            @NotNull PixelLayout newLayout,
            int newWidth,
            int newHeight,
            int rowBytes) {
        int row = check(source, newLayout, newWidth, newHeight, rowBytes);
        resize(newLayout, newWidth, newHeight);
        Buffer bounds = source; // Its methods are the same on all versions of Android.
        int position = bounds.position();
        int limit = bounds.limit();
        for (int y = 0; y < height; ++y) {
            bounds.limit(position + y * rowBytes + row);
            bounds.position(position + y * rowBytes);
            bytes.put(source);
        }
        bounds.limit(limit);
        bounds.position(position);
        ((Buffer) bytes).position(0);
    }

    /**
     * Copies a bitmap, with its color multiplied by its alpha. One of alpha alone counts as white.
     *
     * @throws IllegalArgumentException if it is recycled, or cannot be read
     */
    void copy(@NotNull Bitmap bitmap) {
        if (bitmap.isRecycled()) {
            throw new IllegalArgumentException("the bitmap is recycled");
        }
        boolean alphaOnly = bitmap.getConfig() == Bitmap.Config.ALPHA_8;
        boolean fits =
                bitmap.getConfig() == Bitmap.Config.ARGB_8888
                        && bitmap.getRowBytes() == PixelLayout.RGBA.bytes(bitmap.getWidth(), 1);
        Bitmap source = fits ? bitmap : bitmap.copy(Bitmap.Config.ARGB_8888, false);
        if (source == null) {
            throw new IllegalArgumentException("the bitmap cannot be read");
        }
        resize(PixelLayout.RGBA, bitmap.getWidth(), bitmap.getHeight());
        source.copyPixelsToBuffer(bytes);
        ((Buffer) bytes).position(0);
        if (alphaOnly) {
            whiten();
        }
        if (!fits) {
            source.recycle();
        }
    }

    /** Sets the color to white, multiplied by the alpha. */
    private void whiten() {
        for (int i = 0; i < bytes.limit(); i += PixelLayout.RGBA.bytesPerPixel) {
            int alpha = bytes.get(i + ALPHA) & 0xFF;
            bytes.putInt(i, alpha * WHITE);
        }
    }

    /** Returns the bytes of a row. */
    private static int check(
            ByteBuffer source, PixelLayout layout, int width, int height, int rowBytes) {
        Objects.requireNonNull(source);
        layout.bytes(width, height); // Throws if no buffer can hold the picture.
        int row = layout.bytes(width, 1);
        if (rowBytes < row) {
            throw new IllegalArgumentException(
                    "a row of " + row + " bytes does not fit into " + rowBytes);
        }
        long needed = (long) rowBytes * (height - 1) + row;
        if (source.remaining() < needed) {
            throw new IllegalArgumentException(
                    "the picture has " + needed + " bytes, the buffer " + source.remaining());
        }
        return row;
    }

    private void resize(PixelLayout newLayout, int newWidth, int newHeight) {
        int needed = newLayout.bytes(newWidth, newHeight);
        if (bytes.capacity() < needed) {
            bytes = ByteBuffer.allocateDirect(needed);
        }
        layout = newLayout;
        width = newWidth;
        height = newHeight;
        Buffer bounds = bytes;
        bounds.position(0);
        bounds.limit(needed);
    }
}
