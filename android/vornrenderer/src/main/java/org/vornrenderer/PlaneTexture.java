package org.vornrenderer;

import android.media.Image;
import android.opengl.GLES30;
import java.nio.Buffer;
import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;

/**
 * A texture with a plane of an image in its red channel. Runs on the GL thread.
 *
 * <p>Samples may lie up to 4 bytes apart; what is between them fills the other channels. So planes of
 * U and V that share their memory (NV12, NV21) need no copy.
 */
final class PlaneTexture {
    /** By the distance of samples. */
    private static final int[] STORAGE = {
        0, GLES30.GL_R8, GLES30.GL_RG8, GLES30.GL_RGB8, GLES30.GL_RGBA8
    };
    private static final int[] FORMATS = {
        0, GLES30.GL_RED, GLES30.GL_RG, GLES30.GL_RGB, GLES30.GL_RGBA
    };

    private final Texture texture = new Texture();
    private ByteBuffer lastRow = ByteBuffer.allocateDirect(0);

    int name() {
        return texture.name();
    }

    /**
     * Copies a plane.
     *
     * @throws IllegalArgumentException if its layout is not one of YUV_420_888
     * @throws RendererException if GL has no texture of that size
     */
    void upload(@NotNull Image.Plane plane, int width, int height) {
        int step = plane.getPixelStride();
        int rowBytes = plane.getRowStride();
        ByteBuffer bytes = plane.getBuffer();
        check(bytes, width, height, step, rowBytes);
        texture.allocate(STORAGE[step], width, height);
        Buffer bounds = bytes; // Its methods are the same on all versions of Android.
        int begin = bounds.position();
        int last = begin + (height - 1) * rowBytes;
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, texture.name());
        Texture.beginUpload(rowBytes / step);
        int together = rowBytes % step == 0 ? height - 1 : 1; // GL's rows are whole samples.
        for (int row = 0; row < height - 1; row += together) {
            bounds.position(begin + row * rowBytes);
            copyRows(row, width, together, FORMATS[step], bytes);
        }
        bounds.position(last);
        copyRows(height - 1, width, 1, FORMATS[step], complete(bytes, width * step));
        bounds.position(begin);
        Texture.endUpload();
    }

    private static void check(ByteBuffer bytes, int width, int height, int step, int rowBytes) {
        if (step < 1 || step >= FORMATS.length || rowBytes < width * step) {
            throw new IllegalArgumentException(
                    "rows of " + width + " samples, " + step + " bytes apart, in " + rowBytes);
        }
        long needed = (long) rowBytes * (height - 1) + (long) step * (width - 1) + 1;
        if (!bytes.isDirect() || bytes.remaining() < needed) {
            throw new IllegalArgumentException(
                    "a plane has " + needed + " bytes, its buffer " + bytes.remaining());
        }
    }

    private static void copyRows(int first, int width, int count, int format, ByteBuffer bytes) {
        GLES30.glTexSubImage2D(
                GLES30.GL_TEXTURE_2D, 0, 0, first, width, count, format,
                GLES30.GL_UNSIGNED_BYTE, bytes);
    }

    /** The last row, which may end with its last sample. */
    private ByteBuffer complete(ByteBuffer row, int size) {
        if (row.remaining() >= size) {
            return row;
        }
        if (lastRow.capacity() < size) {
            lastRow = ByteBuffer.allocateDirect(size);
        }
        Buffer bounds = lastRow;
        bounds.clear();
        lastRow.put(row);
        bounds.clear();
        return lastRow;
    }

    void free(boolean contextLost) {
        texture.free(contextLost);
    }
}
