package android.graphics;

import java.nio.Buffer;
import java.nio.ByteBuffer;

/** An image in memory, with RGBA in each pixel. */
public final class Bitmap {
    /** How pixels are kept. */
    public enum Config {
        ARGB_8888
    }

    private static final int BYTES_PER_PIXEL = 4;

    private final int width;
    private final int height;
    private final byte[] rgba;

    private Bitmap(int width, int height) {
        this.width = width;
        this.height = height;
        rgba = new byte[width * height * BYTES_PER_PIXEL];
    }

    public static Bitmap createBitmap(int width, int height, Config config) {
        return new Bitmap(width, height);
    }

    public int getWidth() {
        return width;
    }

    public int getHeight() {
        return height;
    }

    /** @throws RuntimeException if the buffer has too few bytes */
    public void copyPixelsFromBuffer(Buffer src) {
        ((ByteBuffer) src).get(rgba);
    }

    /** The color as in android.graphics.Color. */
    public int getPixel(int x, int y) {
        return Integer.rotateRight(
                ByteBuffer.wrap(rgba).getInt((y * width + x) * BYTES_PER_PIXEL), Byte.SIZE);
    }
}
