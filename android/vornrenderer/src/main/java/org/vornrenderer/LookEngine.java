package org.vornrenderer;

import android.graphics.Bitmap;
import java.nio.ByteBuffer;
import java.util.Objects;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** The calls of an engine that say how it shows its pictures, and what lies over them. */
abstract class LookEngine {
    final Look look = new Look();
    final StickerLayer stickers = new StickerLayer();
    final Placement place = new Placement();

    /** Shows the mask in the slot. Kept, so that a call makes no garbage. */
    final Runnable takeMask = look.mask::takePixels;

    LookEngine() {}

    /**
     * Sets how the picture fills the screen.
     *
     * @param mode {@link ScaleMode#FIT} at the start
     */
    public final void setScaleMode(@NotNull ScaleMode mode) {
        look.scaleMode = Objects.requireNonNull(mode);
    }

    /**
     * Sets the color around the picture, and where a mask hides it.
     *
     * @param color as in android.graphics.Color, without alpha; black at the start
     */
    public final void setBorderColor(int color) {
        look.borderColor = color;
    }

    /**
     * Swaps left and right of the picture.
     *
     * @param mirror false at the start
     */
    public final void setMirrored(boolean mirror) {
        look.mirrored = mirror;
    }

    /**
     * Turns the picture, beyond what the clip or the surface texture says.
     *
     * @param degrees clockwise: 0, 90, 180 or 270; 0 at the start
     * @throws IllegalArgumentException for another angle
     */
    public final void setRotation(int degrees) {
        Check.rotation(degrees);
        look.rotation = degrees;
    }

    /**
     * Moves the picture.
     *
     * @param right in pixels of the screen
     * @param down in pixels of the screen
     * @throws IllegalArgumentException if a value is not finite
     */
    public final void drag(float right, float down) {
        Check.place(right, down);
        look.view.drag(right / place.width(), down / place.height());
    }

    /**
     * Zooms the picture in or out, around its middle.
     *
     * @param factor more than 1 to zoom in
     * @throws IllegalArgumentException if it is not positive or not finite
     */
    public final void zoomBy(float factor) {
        Check.factor(factor);
        look.view.zoomBy(factor);
    }

    /** Shows the picture unmoved and as large as the screen allows. */
    public final void resetView() {
        look.view.reset();
    }

    /**
     * Hides parts of the picture. The mask is stretched over the picture, moves with it, is not
     * mirrored, and stays until it is replaced, also when another picture is shown. Where it is black,
     * the border color shows; elsewhere the picture has the mask's alpha.
     *
     * @param mask copied; ALPHA_8 counts as white, so its alpha is that of the picture
     * @throws IllegalArgumentException if it is recycled
     */
    public final void setMask(@NotNull Bitmap mask) {
        look.mask.slot().offer(mask);
        takeMask.run();
    }

    /**
     * Hides parts of the picture, as {@link #setMask(Bitmap)} does.
     *
     * @param mask direct or not; read from its position, which stays, and copied: rows without
     *     padding, first row first
     * @param layout of the mask
     * @param width in pixels
     * @param height in pixels
     * @throws IllegalArgumentException if a size is not positive, or the buffer ends too early
     */
    public final void setMask(
            @NotNull ByteBuffer mask, @NotNull PixelLayout layout, int width, int height) {
        look.mask.slot().offer(mask, layout, width, height, layout.bytes(width, 1));
        takeMask.run();
    }

    /**
     * Hides parts of the picture, as {@link #setMask(Bitmap)} does. After a context loss the mask is
     * gone.
     *
     * @param texture GL name of a complete GL_TEXTURE_2D, sampled with its own filters; must exist as
     *     long as it is the mask
     * @throws IllegalArgumentException if it is not positive
     */
    public final void setMaskTexture(int texture) {
        Check.texture(texture);
        look.mask.take(texture);
    }

    /**
     * Shows the whole picture, or the mask again.
     *
     * @param hidden false at the start
     */
    public final void setMaskHidden(boolean hidden) {
        look.mask.hide(hidden);
    }

    /** Forgets the mask. */
    public final void clearMask() {
        look.mask.clear();
    }

    /**
     * Puts a sticker on top of all others. Any thread.
     *
     * @param sticker may be in other engines, too
     */
    public final void addSticker(@NotNull Sticker sticker) {
        stickers.add(sticker);
    }

    /**
     * Takes a sticker away. Any thread.
     *
     * @param sticker one that is not there does nothing
     */
    public final void removeSticker(@NotNull Sticker sticker) {
        stickers.remove(sticker);
    }

    /** Takes all stickers away. Any thread. */
    public final void clearStickers() {
        stickers.clear();
    }

    /**
     * The topmost sticker at a place. Any thread.
     *
     * @param x in pixels of the screen, from its first column
     * @param y in pixels of the screen, from its first row
     * @return null for none
     */
    @Nullable
    public final Sticker stickerAt(float x, float y) {
        return stickers.at(x, y);
    }
}
