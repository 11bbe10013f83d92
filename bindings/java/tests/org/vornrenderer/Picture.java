package org.vornrenderer;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertTrue;

import java.nio.ByteBuffer;

/** Pixels in Java's memory, and what a renderer makes of them, worked out on the CPU. */
final class Picture {
    private static final double TOO_CLOSE = 1e-3;
    private static final int[] KEY_COLOUR = {169, 210, 216, 0};
    private static final int[] UNKNOWN = null;

    final int width;
    final int height;
    private final int[][] pixels;

    private Picture(int width, int height) {
        this.width = width;
        this.height = height;
        pixels = new int[width * height][];
    }

    /** No two neighbours alike, and no row or column like another. */
    static Picture patterned(int width, int height, int seed) {
        Picture picture = new Picture(width, height);
        for (int i = 0; i < picture.pixels.length; ++i) {
            int hash = (i + 1) * 0x9E3779B1 ^ seed * 0x85EBCA6B;
            picture.pixels[i] =
                    new int[] {hash >>> 8 & 0xFF, hash >>> 16 & 0xFF, hash >>> 24, 255};
        }
        return picture;
    }

    static Picture flat(int width, int height, int... colour) {
        Picture picture = new Picture(width, height);
        java.util.Arrays.fill(picture.pixels, colour);
        return picture;
    }

    /** Of a context's pixels. */
    static Picture of(int width, int height, ByteBuffer rgba) {
        Picture picture = new Picture(width, height);
        for (int i = 0; i < picture.pixels.length; ++i) {
            picture.pixels[i] = new int[4];
            for (int c = 0; c < 4; ++c) {
                picture.pixels[i][c] = rgba.get(4 * i + c) & 0xFF;
            }
        }
        return picture;
    }

    int[] at(int x, int y) {
        return pixels[y * width + x];
    }

    void set(int x, int y, int... colour) {
        pixels[y * width + x] = colour;
    }

    /** In a direct buffer that ends with the last byte, and begins some bytes before the first. */
    ByteBuffer bytes(PixelLayout layout) {
        int offset = 5;
        ByteBuffer buffer = ByteBuffer.allocateDirect(offset + layout.bytes(width, height));
        buffer.position(offset);
        for (int[] pixel : pixels) {
            for (int c = 0; c < layout.bytesPerPixel; ++c) {
                buffer.put((byte) pixel[c]);
            }
        }
        buffer.position(offset);
        return buffer;
    }

    /** Every pixel is the scene's, but for those where rounding decides; they are few. */
    void assertShows(Scene scene) {
        int unknown = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                int[] expected = scene.pixel(x, y, width, height);
                if (expected == UNKNOWN) {
                    ++unknown;
                } else {
                    assertArrayEquals("pixel " + x + ", " + y, expected, at(x, y));
                }
            }
        }
        assertTrue(unknown + " pixels unknown", unknown < pixels.length / 5);
    }

    private int[] nearest(double u, double v) {
        double x = u * width;
        double y = v * height;
        boolean onEdge =
                Math.abs(x - Math.rint(x)) < TOO_CLOSE || Math.abs(y - Math.rint(y)) < TOO_CLOSE;
        return onEdge ? UNKNOWN : at((int) x, (int) y);
    }

    /** What is drawn, and how it is seen. */
    static final class Scene {
        Picture frame;
        Picture mask;
        Picture sticker;
        int[] stickers = {};
        int[] background = {0, 0, 0, 0};
        boolean mirrored;
        double viewX;
        double zoom = 2;

        Scene(Picture frame) {
            this.frame = frame;
        }

        int[] pixel(int column, int row, int width, int height) {
            double scale = 1 / Math.tan(Math.toRadians(23.5)) / (3 - zoom / 2);
            double x = viewX + ((2.0 * column + 1) / width - 1) / scale;
            double y = ((2.0 * row + 1) / height - 1) / scale;
            int[] colour = picture(x, y);
            for (int i = 0; sticker != null && i < stickers.length; i += 2) {
                double left = (stickers[i] - width / 2) / (double) (width / 2) - 0.05;
                double top = (stickers[i + 1] - height / 2) / (double) (height / 2) - 0.4;
                colour = overlay((x - left) / 0.1, (y - top) / 0.2, colour);
            }
            return colour;
        }

        private int[] picture(double x, double y) {
            double inside = 1 - Math.max(Math.abs(x), Math.abs(y));
            if (Math.abs(inside) < TOO_CLOSE) {
                return UNKNOWN;
            }
            if (inside < 0) {
                return background;
            }
            double u = (x + 1) / 2;
            double v = (y + 1) / 2;
            int[] colour = frame.nearest(mirrored ? 1 - u : u, v);
            int[] key = mask != null ? mask.nearest(u, v) : UNKNOWN;
            if (mask == null || colour == UNKNOWN || key == UNKNOWN) {
                return mask == null ? colour : UNKNOWN;
            }
            boolean black = key[0] == 0 && key[1] == 0 && key[2] == 0;
            return black ? KEY_COLOUR : new int[] {colour[0], colour[1], colour[2], key[3]};
        }

        private int[] overlay(double u, double v, int[] below) {
            double inside = Math.min(Math.min(u, 1 - u), Math.min(v, 1 - v));
            if (Math.abs(inside) < 10 * TOO_CLOSE) {
                return UNKNOWN;
            }
            return inside < 0 ? below : sticker.nearest(mirrored ? 1 - u : u, 1 - v);
        }
    }
}
