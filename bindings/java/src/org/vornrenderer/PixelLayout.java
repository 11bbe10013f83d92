package org.vornrenderer;

/** How pixels lie in memory: rows without padding, first row first. */
public enum PixelLayout {
    /** Red, green, blue: 3 bytes a pixel. */
    RGB(3, 3, 3),
    /** Red, green, blue, alpha: 4 bytes a pixel. */
    RGBA(4, 4, 5);

    final int bytesPerPixel;

    /** The destination's format at creation. */
    final int destinationCode;

    /** VERendererMode::maskFormat. */
    final int maskCode;

    PixelLayout(int bytesPerPixel, int destinationCode, int maskCode) {
        this.bytesPerPixel = bytesPerPixel;
        this.destinationCode = destinationCode;
        this.maskCode = maskCode;
    }

    /**
     * The size of a frame or mask of this layout.
     *
     * @param width in pixels, 1 or more
     * @param height in pixels, 1 or more
     * @return bytes
     * @throws IllegalArgumentException if a side is not positive, or no buffer can hold so much
     */
    public int bytes(int width, int height) {
        if (width <= 0 || height <= 0) {
            throw new IllegalArgumentException("no picture is " + width + " x " + height);
        }
        long pixels = (long) width * height;
        if (pixels > Integer.MAX_VALUE / bytesPerPixel) {
            throw new IllegalArgumentException(
                    width + " x " + height + " " + this + " does not fit a buffer");
        }
        return (int) pixels * bytesPerPixel;
    }
}
