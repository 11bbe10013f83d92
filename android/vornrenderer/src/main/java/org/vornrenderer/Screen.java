package org.vornrenderer;

import android.graphics.Bitmap;
import android.opengl.GLES30;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import org.jetbrains.annotations.NotNull;

/** The texture that a renderer draws into, and its way to the screen. Runs on the GL thread. */
final class Screen {
    private static final int BYTES_PER_PIXEL = 4;

    private final int pictureWidth;
    private final int pictureHeight;
    private final int[] texture = new int[1];
    private final int[] framebuffer = new int[1];
    private int shownWidth = 1;
    private int shownHeight = 1;

    Screen(int width, int height) {
        pictureWidth = width;
        pictureHeight = height;
        GLES30.glGenTextures(1, texture, 0);
        GLES30.glGenFramebuffers(1, framebuffer, 0);
    }

    int texture() {
        return texture[0];
    }

    /** The width of the picture on the screen, in pixels. */
    int shownWidth() {
        return shownWidth;
    }

    int shownHeight() {
        return shownHeight;
    }

    /** Once the texture has storage. */
    void attach() {
        bindPicture();
        GLES30.glFramebufferTexture2D(
                GLES30.GL_READ_FRAMEBUFFER,
                GLES30.GL_COLOR_ATTACHMENT0,
                GLES30.GL_TEXTURE_2D,
                texture(),
                0);
        GLES30.glBindFramebuffer(GLES30.GL_READ_FRAMEBUFFER, 0);
    }

    void close() {
        GLES30.glDeleteFramebuffers(1, framebuffer, 0);
        GLES30.glDeleteTextures(1, texture, 0);
    }

    static void clear(int color) {
        GLES30.glClearColor(channel(color, 16), channel(color, 8), channel(color, 0), 1);
        GLES30.glClear(GLES30.GL_COLOR_BUFFER_BIT);
    }

    /** Shows the picture in the framebuffer that is bound for drawing, its first row at the top. */
    void show(int width, int height, @NotNull ScaleMode mode, int color) {
        clear(color);
        bindPicture();
        float x = (float) width / pictureWidth;
        float y = (float) height / pictureHeight;
        float scale = mode == ScaleMode.FIT ? Math.min(x, y) : Math.max(x, y);
        boolean stretch = mode == ScaleMode.STRETCH;
        shownWidth = Math.max(1, stretch ? width : Math.round(pictureWidth * scale));
        shownHeight = Math.max(1, stretch ? height : Math.round(pictureHeight * scale));
        int left = (width - shownWidth) / 2;
        int bottom = (height - shownHeight) / 2;
        GLES30.glBlitFramebuffer(
                0, 0, pictureWidth, pictureHeight,
                left, bottom + shownHeight, left + shownWidth, bottom,
                GLES30.GL_COLOR_BUFFER_BIT, GLES30.GL_LINEAR);
        GLES30.glBindFramebuffer(GLES30.GL_READ_FRAMEBUFFER, 0);
    }

    @NotNull
    Bitmap capture() {
        ByteBuffer pixels =
                ByteBuffer.allocateDirect(pictureWidth * pictureHeight * BYTES_PER_PIXEL)
                        .order(ByteOrder.nativeOrder());
        bindPicture();
        GLES30.glReadPixels(
                0, 0, pictureWidth, pictureHeight, GLES30.GL_RGBA, GLES30.GL_UNSIGNED_BYTE, pixels);
        GLES30.glBindFramebuffer(GLES30.GL_READ_FRAMEBUFFER, 0);
        Bitmap bitmap =
                Bitmap.createBitmap(pictureWidth, pictureHeight, Bitmap.Config.ARGB_8888);
        bitmap.copyPixelsFromBuffer(pixels);
        return bitmap;
    }

    private void bindPicture() {
        GLES30.glBindFramebuffer(GLES30.GL_READ_FRAMEBUFFER, framebuffer[0]);
    }

    private static float channel(int color, int shift) {
        return (color >> shift & 0xFF) / 255F;
    }
}
