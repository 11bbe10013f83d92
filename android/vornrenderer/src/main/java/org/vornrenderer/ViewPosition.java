package org.vornrenderer;

/**
 * The position of the camera. Converts points of the output to points of the picture.
 *
 * <p>The picture is the square from -1 to 1. Relative to the output it has the size {@link #scale}.
 * Points of the output run from 0 to 1, from its first column and row.
 */
final class ViewPosition {
    private static final float SCALE_AT_1 = 2.2998426F;
    private static final float NEAREST = 0.5F;
    private static final float FARTHEST = 3;
    private static final float FITTING = 3 - VideoRenderer.ZOOM_FIT / 2;

    /** From the anchor to the middle of a sticker, in the square's units. */
    private static final float STICKER_OFFSET = 0.3F;

    private float x;
    private float y;
    private float distance = FITTING;

    float x() {
        return x;
    }

    float y() {
        return y;
    }

    float zoom() {
        return 2 * (3 - distance);
    }

    /** Moves the picture right and down by these parts of the output's width and height. */
    void drag(float right, float down) {
        x = clamp(x - 2 * right / scale(), -1, 1);
        y = clamp(y - 2 * down / scale(), -1, 1);
    }

    void reset() {
        x = 0;
        y = 0;
        distance = FITTING;
    }

    void zoomBy(float factor) {
        distance = clamp(distance / factor, NEAREST, FARTHEST);
    }

    /** The anchor of a sticker whose middle is at this part of the output's width. */
    int anchorX(float part, int width) {
        return Math.round((x + seen(part) + 1) / 2 * width);
    }

    /** The anchor of a sticker whose middle is at this part of the output's height. */
    int anchorY(float part, int height) {
        return Math.round((y + seen(part) + STICKER_OFFSET + 1) / 2 * height);
    }

    private float scale() {
        return SCALE_AT_1 / distance;
    }

    private float seen(float part) {
        return (2 * part - 1) / scale();
    }

    private static float clamp(float value, float least, float most) {
        return Math.max(least, Math.min(most, value));
    }
}
