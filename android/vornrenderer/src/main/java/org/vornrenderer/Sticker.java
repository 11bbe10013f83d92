package org.vornrenderer;

import android.graphics.Bitmap;
import org.jetbrains.annotations.NotNull;

/**
 * A bitmap over the picture, in pixels of the view from its first column and row. It stays where it is
 * when the picture moves. All methods may be called on any thread, and take effect with the next frame.
 *
 * <pre>{@code
 * Sticker sticker = new Sticker(bitmap);
 * sticker.moveTo(200, 300);
 * view.addSticker(sticker); // A finger drags it.
 * }</pre>
 */
public final class Sticker {
    private final Pixels pixels = new Pixels();
    private volatile float x;
    private volatile float y;
    private volatile float scale = 1;
    private volatile boolean draggable = true;

    /**
     * A sticker of the bitmap's size, around the first pixel of the view.
     *
     * @param image copied; translucent parts let the picture show, ALPHA_8 is white
     * @throws IllegalArgumentException if it is recycled
     */
    public Sticker(@NotNull Bitmap image) {
        pixels.copy(image);
    }

    /**
     * Moves the sticker.
     *
     * @param newX of its middle
     * @param newY of its middle
     * @throws IllegalArgumentException if a value is not finite
     */
    public void moveTo(float newX, float newY) {
        Check.place(newX, newY);
        x = newX;
        y = newY;
    }

    /**
     * Sets the size.
     *
     * @param newScale pixels of the view for each pixel of the bitmap, more than 0; 1 at the start
     * @throws IllegalArgumentException if it is not positive or not finite
     */
    public void setScale(float newScale) {
        Check.factor(newScale);
        scale = newScale;
    }

    /**
     * Sets whether a finger drags the sticker. Otherwise the gesture goes to the picture.
     *
     * @param drag true at the start
     */
    public void setDraggable(boolean drag) {
        draggable = drag;
    }

    /**
     * Where the sticker is.
     *
     * @return x of its middle
     */
    public float x() {
        return x;
    }

    /**
     * Where the sticker is.
     *
     * @return y of its middle
     */
    public float y() {
        return y;
    }

    /**
     * The width in the view.
     *
     * @return pixels
     */
    public float width() {
        return pixels.width() * scale;
    }

    /**
     * The height in the view.
     *
     * @return pixels
     */
    public float height() {
        return pixels.height() * scale;
    }

    /**
     * Whether a finger drags the sticker.
     *
     * @return what {@link #setDraggable} set
     */
    public boolean isDraggable() {
        return draggable;
    }

    /**
     * Whether the sticker shows at a place of the view.
     *
     * @param placeX in pixels of the view
     * @param placeY in pixels of the view
     * @return false outside, and where the bitmap is transparent
     */
    public boolean contains(float placeX, float placeY) {
        double column = Math.floor((placeX - x + width() / 2) / scale);
        double row = Math.floor((placeY - y + height() / 2) / scale);
        if (!(column >= 0 && row >= 0 && column < pixels.width() && row < pixels.height())) {
            return false;
        }
        int pixel = (int) row * pixels.width() + (int) column;
        return pixels.bytes().get(pixel * pixels.layout().bytesPerPixel + Pixels.ALPHA) != 0;
    }

    @NotNull
    Pixels pixels() {
        return pixels;
    }
}
