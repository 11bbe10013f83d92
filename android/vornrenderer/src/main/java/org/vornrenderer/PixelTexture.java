package org.vornrenderer;

import android.opengl.GLES30;
import org.jetbrains.annotations.NotNull;

/** A texture with a copy of pixels. Runs on the GL thread. */
final class PixelTexture {
    private static final int GL_ALIGNMENT = 4;

    private final int[] name = new int[1];
    private PixelLayout layout;
    private int width;
    private int height;

    /** 0 before the first upload. */
    int name() {
        return name[0];
    }

    /**
     * Copies pixels.
     *
     * @throws RendererException if GL has no texture of that size
     */
    void upload(@NotNull Pixels pixels) {
        boolean fits =
                name[0] != 0
                        && width == pixels.width()
                        && height == pixels.height()
                        && layout == pixels.layout();
        if (!fits) {
            allocate(pixels);
        }
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, name[0]);
        GLES30.glPixelStorei(GLES30.GL_UNPACK_ALIGNMENT, 1);
        GLES30.glTexSubImage2D(
                GLES30.GL_TEXTURE_2D, 0, 0, 0, width, height,
                layout == PixelLayout.RGB ? GLES30.GL_RGB : GLES30.GL_RGBA,
                GLES30.GL_UNSIGNED_BYTE, pixels.bytes());
        GLES30.glPixelStorei(GLES30.GL_UNPACK_ALIGNMENT, GL_ALIGNMENT);
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, 0);
    }

    private void allocate(Pixels pixels) {
        free(false);
        int[] largest = new int[1];
        GLES30.glGetIntegerv(GLES30.GL_MAX_TEXTURE_SIZE, largest, 0);
        if (pixels.width() > largest[0] || pixels.height() > largest[0]) {
            throw new RendererException(
                    RendererException.Reason.PICTURE_SIZE,
                    pixels.width() + " x " + pixels.height() + " is larger than GL allows",
                    null);
        }
        layout = pixels.layout();
        width = pixels.width();
        height = pixels.height();
        GLES30.glGenTextures(1, name, 0);
        bindSmooth(name[0]);
        boolean rgb = layout == PixelLayout.RGB;
        GLES30.glTexStorage2D(
                GLES30.GL_TEXTURE_2D, 1, rgb ? GLES30.GL_RGB8 : GLES30.GL_RGBA8, width, height);
        if (GLES30.glGetError() == GLES30.GL_OUT_OF_MEMORY) {
            free(false);
            throw new RendererException(
                    RendererException.Reason.OUT_OF_MEMORY, "GL is out of memory", null);
        }
    }

    /** Binds a texture, with linear filters and clamped edges. */
    static void bindSmooth(int texture) {
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
