package org.vornrenderer;

import android.graphics.Bitmap;
import android.graphics.SurfaceTexture;
import android.media.Image;
import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * What a view shows besides clips, and what lies over its pictures: masks and stickers.
 *
 * <p>All methods belong to the UI thread. They take effect with the next frame. What is shown last
 * replaces what was before, clips, too. Applications implement no view.
 */
public interface PictureView {
    /**
     * Runs an event on the GL thread.
     *
     * @param event runs before the next frame
     */
    void queueEvent(@NotNull Runnable event);

    /**
     * The engine of the view. Its methods belong to the GL thread: {@link #queueEvent}.
     *
     * @return the same for the life of the view
     */
    @NotNull
    VideoEngine engine();

    /**
     * Shows a bitmap.
     *
     * @param picture copied; translucent parts are over black
     * @throws IllegalArgumentException if it is recycled
     */
    default void show(@NotNull Bitmap picture) {
        engine().stillSlot().offer(picture);
        queueEvent(engine().takeStill);
    }

    /**
     * Shows pixels. Memory is used again, so frames of one size make no garbage. Any thread.
     *
     * @param pixels direct or not; read from its position, which stays, and copied: rows without
     *     padding, first row first; alpha is ignored
     * @param layout of the pixels
     * @param width in pixels
     * @param height in pixels
     * @throws IllegalArgumentException if a size is not positive, or the buffer ends too early
     */
    default void show(
            @NotNull ByteBuffer pixels, @NotNull PixelLayout layout, int width, int height) {
        show(pixels, layout, width, height, layout.bytes(width, 1));
    }

    /**
     * Shows pixels whose rows have padding. Any thread.
     *
     * @param pixels as in {@link #show(ByteBuffer, PixelLayout, int, int)}
     * @param layout of the pixels
     * @param width in pixels
     * @param height in pixels
     * @param rowBytes from the begin of a row to that of the next; the last row needs no padding
     * @throws IllegalArgumentException if a size is not positive, a row is longer than rowBytes, or
     *     the buffer ends too early
     */
    default void show(
            @NotNull ByteBuffer pixels,
            @NotNull PixelLayout layout,
            int width,
            int height,
            int rowBytes) {
        engine().stillSlot().offer(pixels, layout, width, height, rowBytes);
        queueEvent(engine().takeStill);
    }

    /**
     * Shows an image of a camera or a decoder, in the colors that it states from API level 33 on, else
     * in those of cameras (BT.601, full range). Its crop is that of the first image of its size. After a
     * pause or a context loss the next image shows. Any thread.
     *
     * @param image of YUV_420_888 or NV21; the view closes it, also if a newer one comes before its turn
     */
    default void show(@NotNull Image image) {
        engine().imageSlot().offer(image);
        queueEvent(engine().takeImage);
    }

    /**
     * Shows what a camera, a player or another producer draws into a surface, turned and cropped as its
     * matrix says. It works on through pauses.
     *
     * @param width of the producer's buffers in pixels; the default size that cameras choose theirs by
     * @param height likewise
     * @return for {@code new Surface(…)}; released when the view shows something else. If a device
     *     takes the context away without a pause, the error listener is called, and another is needed
     * @throws IllegalArgumentException if a side is not positive
     */
    @NotNull
    default SurfaceTexture surfaceTexture(int width, int height) {
        SurfaceTexture made = SurfaceTextureSource.make(width, height);
        queueEvent(() -> engine().show(made, width, height));
        return made;
    }

    /**
     * Turns the picture, beyond what the clip or the surface texture says.
     *
     * @param degrees clockwise: 0, 90, 180 or 270; 0 at the start
     * @throws IllegalArgumentException for another angle
     */
    default void setRotation(int degrees) {
        Check.rotation(degrees);
        queueEvent(() -> engine().setRotation(degrees));
    }

    /**
     * Hides parts of the picture. The mask is stretched over the picture, moves with it, is not
     * mirrored, and stays until it is replaced, also when another picture is shown. Where it is black,
     * the border color shows; elsewhere the picture has the mask's alpha.
     *
     * @param mask copied; ALPHA_8 counts as white, so its alpha is that of the picture
     * @throws IllegalArgumentException if it is recycled
     */
    default void setMask(@NotNull Bitmap mask) {
        engine().look.mask.slot().offer(mask);
        queueEvent(engine().takeMask);
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
    default void setMask(
            @NotNull ByteBuffer mask, @NotNull PixelLayout layout, int width, int height) {
        engine().look.mask.slot().offer(mask, layout, width, height, layout.bytes(width, 1));
        queueEvent(engine().takeMask);
    }

    /**
     * Hides parts of the picture, as {@link #setMask(Bitmap)} does. After a pause or a context loss the
     * mask is gone.
     *
     * @param texture GL name, in the context of the GL thread, of a complete GL_TEXTURE_2D, sampled with
     *     its own filters; must exist as long as it is the mask
     * @throws IllegalArgumentException if it is not positive
     */
    default void setMaskTexture(int texture) {
        Check.texture(texture);
        queueEvent(() -> engine().setMaskTexture(texture));
    }

    /**
     * Shows the whole picture, or the mask again.
     *
     * @param hidden false at the start
     */
    default void setMaskHidden(boolean hidden) {
        queueEvent(() -> engine().setMaskHidden(hidden));
    }

    /** Forgets the mask. */
    default void clearMask() {
        queueEvent(engine()::clearMask);
    }

    /**
     * Puts a sticker on top of all others. Any thread.
     *
     * @param sticker may be in other views, too
     */
    default void addSticker(@NotNull Sticker sticker) {
        engine().addSticker(sticker);
    }

    /**
     * Takes a sticker away. Any thread.
     *
     * @param sticker one that is not there does nothing
     */
    default void removeSticker(@NotNull Sticker sticker) {
        engine().removeSticker(sticker);
    }

    /** Takes all stickers away. Any thread. */
    default void clearStickers() {
        engine().clearStickers();
    }

    /**
     * The topmost sticker at a place. Any thread.
     *
     * @param x in pixels of the view, from its first column
     * @param y in pixels of the view, from its first row
     * @return null for none
     */
    @Nullable
    default Sticker stickerAt(float x, float y) {
        return engine().stickerAt(x, y);
    }
}
