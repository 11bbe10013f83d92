package android.graphics;

import java.nio.Buffer;
import java.nio.ByteBuffer;

/** An image in memory, with RGBA in each pixel, whatever its configuration is. */
public final class Bitmap {
    /** How pixels are kept. */
    public enum Config {
        ALPHA_8,
        RGB_565,
        ARGB_8888
    }

    private static final int BYTES_PER_PIXEL = 4;

    private final int width;
    private final int height;
    private final Config config;
    private byte[] rgba;

    private Bitmap(int width, int height, Config config) {
        this.width = width;
        this.height = height;
        this.config = config;
        rgba = new byte[width * height * BYTES_PER_PIXEL];
    }

    public static Bitmap createBitmap(int width, int height, Config config) {
        return new Bitmap(width, height, config);
    }

    public Bitmap copy(Config copyConfig, boolean isMutable) {
        Bitmap copied = new Bitmap(width, height, copyConfig);
        copied.rgba = rgba.clone();
        return copied;
    }

    public int getWidth() {
        return width;
    }

    public int getHeight() {
        return height;
    }

    public Config getConfig() {
        return config;
    }

    public int getRowBytes() {
        return width * BYTES_PER_PIXEL;
    }

    /** The bitmap has no pixels then. */
    public void recycle() {
        rgba = null;
    }

    public boolean isRecycled() {
        return rgba == null;
    }

    /** @throws RuntimeException if the buffer has too few bytes */
    public void copyPixelsFromBuffer(Buffer src) {
        ((ByteBuffer) src).get(rgba);
    }

    /** @throws RuntimeException if the buffer has no room, or the configuration is another one */
    public void copyPixelsToBuffer(Buffer dst) {
        if (config != Config.ARGB_8888) {
            throw new IllegalStateException("no RGBA");
        }
        ((ByteBuffer) dst).put(rgba);
    }

    /** The color as in android.graphics.Color. */
    public int getPixel(int x, int y) {
        return Integer.rotateRight(
                ByteBuffer.wrap(rgba).getInt((y * width + x) * BYTES_PER_PIXEL), Byte.SIZE);
    }

    /** Unlike on a device, the color is not multiplied by its alpha. */
    public void setPixel(int x, int y, int color) {
        ByteBuffer.wrap(rgba)
                .putInt((y * width + x) * BYTES_PER_PIXEL, Integer.rotateLeft(color, Byte.SIZE));
    }
}
