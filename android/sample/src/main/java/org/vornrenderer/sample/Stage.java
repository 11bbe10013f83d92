package org.vornrenderer.sample;

import android.graphics.Bitmap;
import android.graphics.Canvas;
import android.graphics.Color;
import android.graphics.Paint;
import android.opengl.GLES30;
import android.opengl.GLUtils;

/**
 * The GL objects around a renderer: its destination, a sticker, and a framebuffer to copy to the
 * screen.
 */
final class Stage {
    private static final int STICKER_SIZE = 64;

    private final int pictureWidth;
    private final int pictureHeight;
    private final int[] textures = new int[2];
    private final int[] framebuffer = new int[1];

    // The place of the picture on the screen, in pixels from the top left.
    private int left;
    private int top;
    private int shownWidth = 1;
    private int shownHeight = 1;

    Stage(int width, int height) {
        pictureWidth = width;
        pictureHeight = height;
        GLES30.glGenTextures(textures.length, textures, 0);
        GLES30.glGenFramebuffers(1, framebuffer, 0);
        fillSticker();
    }

    int picture() {
        return textures[0];
    }

    int sticker() {
        return textures[1];
    }

    int shownWidth() {
        return shownWidth;
    }

    int shownHeight() {
        return shownHeight;
    }

    float partX(float x) {
        return (x - left) / shownWidth;
    }

    float partY(float y) {
        return (y - top) / shownHeight;
    }

    /** Shows the picture as large as the screen allows, its first row at the top. */
    void show(int screenWidth, int screenHeight) {
        fit(screenWidth, screenHeight);
        GLES30.glBindFramebuffer(GLES30.GL_DRAW_FRAMEBUFFER, 0);
        GLES30.glClear(GLES30.GL_COLOR_BUFFER_BIT);
        GLES30.glBindFramebuffer(GLES30.GL_READ_FRAMEBUFFER, framebuffer[0]);
        GLES30.glFramebufferTexture2D(
                GLES30.GL_READ_FRAMEBUFFER,
                GLES30.GL_COLOR_ATTACHMENT0,
                GLES30.GL_TEXTURE_2D,
                picture(),
                0);
        int highest = screenHeight - top;
        GLES30.glBlitFramebuffer(
                0,
                0,
                pictureWidth,
                pictureHeight,
                left,
                highest,
                left + shownWidth,
                highest - shownHeight,
                GLES30.GL_COLOR_BUFFER_BIT,
                GLES30.GL_LINEAR);
        GLES30.glBindFramebuffer(GLES30.GL_READ_FRAMEBUFFER, 0);
    }

    void close() {
        GLES30.glDeleteFramebuffers(1, framebuffer, 0);
        GLES30.glDeleteTextures(textures.length, textures, 0);
    }

    private void fit(int screenWidth, int screenHeight) {
        float scale =
                Math.min(
                        (float) screenWidth / pictureWidth, (float) screenHeight / pictureHeight);
        shownWidth = Math.max(1, Math.round(pictureWidth * scale));
        shownHeight = Math.max(1, Math.round(pictureHeight * scale));
        left = (screenWidth - shownWidth) / 2;
        top = (screenHeight - shownHeight) / 2;
    }

    /** A ring, which looks the same upside down: stickers begin at their anchor. */
    private void fillSticker() {
        Bitmap bitmap = Bitmap.createBitmap(STICKER_SIZE, STICKER_SIZE, Bitmap.Config.ARGB_8888);
        bitmap.eraseColor(Color.WHITE);
        Paint paint = new Paint(Paint.ANTI_ALIAS_FLAG);
        paint.setColor(Color.RED);
        paint.setStyle(Paint.Style.STROKE);
        paint.setStrokeWidth(STICKER_SIZE / 8F);
        float middle = STICKER_SIZE / 2F;
        new Canvas(bitmap).drawCircle(middle, middle, STICKER_SIZE / 3F, paint);

        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, sticker());
        GLES30.glTexParameteri(
                GLES30.GL_TEXTURE_2D, GLES30.GL_TEXTURE_MIN_FILTER, GLES30.GL_LINEAR);
        GLUtils.texImage2D(GLES30.GL_TEXTURE_2D, 0, bitmap, 0);
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, 0);
        bitmap.recycle();
    }
}
