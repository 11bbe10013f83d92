package org.vornrenderer;

import android.opengl.GLES30;
import org.jetbrains.annotations.NotNull;

/** A GL_TEXTURE_2D with linear filters and clamped edges. Runs on the GL thread. */
final class Texture {
    private static final int GL_ALIGNMENT = 4;

    private final int[] name = new int[1];
    private int format;
    private int width;
    private int height;

    /** 0 before storage was allocated. */
    int name() {
        return name[0];
    }

    /**
     * Copies pixels.
     *
     * @throws RendererException if GL has no texture of that size
     */
    void upload(@NotNull Pixels pixels) {
        boolean rgb = pixels.layout() == PixelLayout.RGB;
        allocate(rgb ? GLES30.GL_RGB8 : GLES30.GL_RGBA8, pixels.width(), pixels.height());
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, name[0]);
        beginUpload(0);
        GLES30.glTexSubImage2D(
                GLES30.GL_TEXTURE_2D, 0, 0, 0, width, height,
                rgb ? GLES30.GL_RGB : GLES30.GL_RGBA, GLES30.GL_UNSIGNED_BYTE, pixels.bytes());
        endUpload();
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, 0);
    }

    /** GL reads rows without alignment; 0 for rows without padding. */
    static void beginUpload(int pixelsFromRowToRow) {
        GLES30.glPixelStorei(GLES30.GL_UNPACK_ALIGNMENT, 1);
        GLES30.glPixelStorei(GLES30.GL_UNPACK_ROW_LENGTH, pixelsFromRowToRow);
    }

    static void endUpload() {
        GLES30.glPixelStorei(GLES30.GL_UNPACK_ALIGNMENT, GL_ALIGNMENT);
        GLES30.glPixelStorei(GLES30.GL_UNPACK_ROW_LENGTH, 0);
    }

    /**
     * Allocates storage, unless there is such storage.
     *
     * @param newFormat a sized internal format
     * @throws RendererException if GL has no texture of that size
     */
    void allocate(int newFormat, int newWidth, int newHeight) {
        boolean fits = format == newFormat && width == newWidth && height == newHeight;
        if (name[0] != 0 && fits) {
            return;
        }
        free(false);
        checkSize(newWidth, newHeight);
        format = newFormat;
        width = newWidth;
        height = newHeight;
        GLES30.glGenTextures(1, name, 0);
        bindSmooth(name[0]);
        GLES30.glTexStorage2D(GLES30.GL_TEXTURE_2D, 1, format, width, height);
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, 0);
        if (GLES30.glGetError() == GLES30.GL_OUT_OF_MEMORY) {
            free(false);
            throw new RendererException(
                    RendererException.Reason.OUT_OF_MEMORY, "GL is out of memory", null);
        }
    }

    private static void checkSize(int width, int height) {
        int[] largest = new int[1];
        GLES30.glGetIntegerv(GLES30.GL_MAX_TEXTURE_SIZE, largest, 0);
        if (width > largest[0] || height > largest[0]) {
            throw new RendererException(
                    RendererException.Reason.PICTURE_SIZE,
                    width + " x " + height + " is larger than GL allows",
                    null);
        }
    }

    private static void bindSmooth(int texture) {
        int target = GLES30.GL_TEXTURE_2D;
        GLES30.glBindTexture(target, texture);
        GLES30.glTexParameteri(target, GLES30.GL_TEXTURE_MIN_FILTER, GLES30.GL_LINEAR);
        GLES30.glTexParameteri(target, GLES30.GL_TEXTURE_MAG_FILTER, GLES30.GL_LINEAR);
        GLES30.glTexParameteri(target, GLES30.GL_TEXTURE_WRAP_S, GLES30.GL_CLAMP_TO_EDGE);
        GLES30.glTexParameteri(target, GLES30.GL_TEXTURE_WRAP_T, GLES30.GL_CLAMP_TO_EDGE);
    }

    void free(boolean contextLost) {
        if (name[0] != 0 && !contextLost) {
            GLES30.glDeleteTextures(1, name, 0);
        }
        name[0] = 0;
    }
}
