package org.vornrenderer.sample;

import android.graphics.Bitmap;

/** Bitmaps that need no files. */
final class Drawings {
    private static final int SKY = 0xFF2060C0;

    private Drawings() {}

    /** Blue at the top, lighter towards the bottom. */
    static Bitmap sky(int width, int height) {
        Bitmap bitmap = Bitmap.createBitmap(width, height, Bitmap.Config.ARGB_8888);
        for (int y = 0; y < height; ++y) {
            int light = 0x30 * y / height;
            int color = SKY + (light << 16) + (2 * light << 8) + light;
            for (int x = 0; x < width; ++x) {
                bitmap.setPixel(x, y, color);
            }
        }
        return bitmap;
    }

    /** An oval that fills its bitmap, with another color around it. */
    static Bitmap oval(int width, int height, int inside, int around) {
        Bitmap bitmap = Bitmap.createBitmap(width, height, Bitmap.Config.ARGB_8888);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                double right = (2.0 * x + 1) / width - 1;
                double down = (2.0 * y + 1) / height - 1;
                boolean isInside = right * right + down * down < 1;
                bitmap.setPixel(x, y, isInside ? inside : around);
            }
        }
        return bitmap;
    }
}
