package org.vornrenderer;

import java.nio.ByteBuffer;

/** Checks of arguments. They throw IllegalArgumentException. */
final class Check {
    /** The presentation times that a decoder can pass on. */
    private static final long MOST_US = Long.MAX_VALUE / 1000 - 1;

    private static final int MATRIX_SIZE = 16;
    private static final float CAMERA_IN_PICTURE = 6;

    private Check() {}

    /** The position of a frame or mask, read once, as another thread may move it. */
    static int position(ByteBuffer buffer, int bytes, String what) {
        if (buffer == null) {
            return 0;
        }
        direct(buffer, what);
        int position = buffer.position();
        int given = buffer.limit() - position;
        if (bytes == 0) {
            throw new IllegalArgumentException("the renderer takes no " + what);
        }
        if (given != bytes) {
            throw new IllegalArgumentException(
                    "the " + what + " has " + given + " bytes, not " + bytes);
        }
        return position;
    }

    static void direct(ByteBuffer buffer, String what) {
        if (!buffer.isDirect()) {
            throw new IllegalArgumentException("the " + what + " is not in a direct buffer");
        }
    }

    static void texture(int texture) {
        if (texture <= 0) {
            throw new IllegalArgumentException(texture + " is not a texture");
        }
    }

    static void matrix(float[] matrix) {
        if (matrix != null && matrix.length != MATRIX_SIZE) {
            throw new IllegalArgumentException("a matrix has 16 values, not " + matrix.length);
        }
    }

    static void drawsTextures(VideoSource source) {
        if (source != VideoSource.TEXTURE_2D && source != VideoSource.TEXTURE_EXTERNAL) {
            throw new IllegalArgumentException("a renderer of " + source + " draws no textures");
        }
    }

    static void pairs(int[] positions) {
        if (positions.length % 2 != 0) {
            throw new IllegalArgumentException(positions.length + " numbers are no pairs");
        }
    }

    static void view(float x, float y, float zoom) {
        if (!Float.isFinite(x) || !Float.isFinite(y) || !(zoom < CAMERA_IN_PICTURE)
                || !Float.isFinite(zoom)) {
            throw new IllegalArgumentException("no view is at " + x + ", " + y + ", zoom " + zoom);
        }
    }

    static void place(float x, float y) {
        if (!Float.isFinite(x) || !Float.isFinite(y)) {
            throw new IllegalArgumentException("no place is " + x + ", " + y);
        }
    }

    static void factor(float factor) {
        if (!(factor > 0) || !Float.isFinite(factor)) {
            throw new IllegalArgumentException("nothing is scaled by " + factor);
        }
    }

    static void rotation(int degrees) {
        if (degrees != 0 && degrees != 90 && degrees != 180 && degrees != 270) {
            throw new IllegalArgumentException("pictures are not turned by " + degrees);
        }
    }

    static void time(long timeUs) {
        if (timeUs > MOST_US || timeUs < -MOST_US) {
            throw new IllegalArgumentException("no unit has the time " + timeUs);
        }
    }
}
