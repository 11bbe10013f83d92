package org.vornrenderer;

import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;

/** How a renderer draws its pictures: turned, mirrored, in a view, under a mask and stickers. */
abstract class ComposingRenderer extends DecodingRenderer {
    static final int NO_TEXTURE = 0;

    private static final float MASKED_ZOOM = 2;
    private static final int[] NO_POSITIONS = {};

    private int rotation;
    private boolean mirrored;
    private boolean maskHidden;
    private float x;
    private float y;
    private float zoom;
    private int stickerTexture;

    ComposingRenderer(Settings settings) {
        super(settings);
        zoom = settings.mask == null ? VideoRenderer.ZOOM_FIT : MASKED_ZOOM;
    }

    /** Returns whether the picture is another one than before. */
    final boolean drawComposed(
            long renderer, ByteBuffer frame, int framePosition, ByteBuffer mask, int maskPosition,
            int texture, float[] matrix) {
        int drawn =
                NativeRenderer.draw(
                        renderer, frame, framePosition, mask, maskPosition, texture, matrix,
                        rotation, mirrored, x, y, zoom);
        RendererException.check(drawn);
        return drawn == NativeRenderer.NEW_PICTURE;
    }

    /**
     * Turns the picture, from the next call of draw on. Mask and stickers keep their places.
     *
     * @param degrees clockwise: 0, 90, 180 or 270; 0 at the start
     * @throws IllegalArgumentException for another angle
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public final void setRotation(int degrees) {
        handle();
        Check.rotation(degrees);
        rotation = degrees;
    }

    /**
     * Swaps left and right of the picture and of each sticker, from the next call of draw on. The
     * mask and the positions of the stickers stay.
     *
     * @param mirrored true to swap; false at the start
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public final void setMirrored(boolean mirrored) {
        handle();
        this.mirrored = mirrored;
    }

    /**
     * Keys the picture by a texture, from the next call of draw on. It replaces the last mask, and
     * stays until another one comes.
     *
     * <p>Black parts of it give a fixed color with alpha 0, all others give the picture with the
     * mask's alpha. It is stretched over the picture and sampled with its own filters.
     *
     * @param texture GL name of a complete GL_TEXTURE_2D, which must exist as long as it is drawn; its
     *     first row lies on the picture's first row
     * @throws IllegalArgumentException if the texture is not positive
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public final void setMaskTexture(int texture) {
        long renderer = handle();
        Check.texture(texture);
        NativeRenderer.setMask(renderer, texture, maskHidden);
    }

    /**
     * Draws without the mask from the next call of draw on. The mask is kept, and a new one stays
     * hidden.
     *
     * @param hidden true to hide; false at the start
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public final void setMaskHidden(boolean hidden) {
        NativeRenderer.setMask(handle(), NO_TEXTURE, hidden);
        maskHidden = hidden;
    }

    /**
     * Whether the mask is hidden.
     *
     * @return what {@link #setMaskHidden} set
     */
    public final boolean isMaskHidden() {
        return maskHidden;
    }

    /**
     * Puts stickers over the picture, from the next call of draw on.
     *
     * <p>A sticker is 5 % of the output's width wide and 10 % of its height high. It is centered on
     * x and ends 10 % of the height before row y. The view moves and scales it with the picture. The
     * first row of its texture is nearest to (x, y).
     *
     * @param texture GL name of a complete GL_TEXTURE_2D
     * @param positions x and y of each sticker in turn, in output pixels from the first row and
     *     column; copied. A pair of {@link VideoRenderer#HIDDEN} is left out.
     * @throws IllegalArgumentException if the texture is not positive, or an x has no y
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     * @throws RendererException if memory runs out
     */
    public final void setStickers(int texture, int... positions) {
        long renderer = handle();
        Check.texture(texture);
        Check.pairs(positions);
        putStickers(renderer, texture, positions);
    }

    /**
     * Draws no stickers from the next call of draw on.
     *
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public final void clearStickers() {
        putStickers(handle(), NO_TEXTURE, NO_POSITIONS);
    }

    private void putStickers(long renderer, int texture, int[] positions) {
        RendererException.check(NativeRenderer.setStickers(renderer, texture, positions));
        stickerTexture = texture;
    }

    /**
     * Moves the view to the left or right, and to the middle of the picture's height.
     *
     * @param x as in {@link #setView(float, float, float)}
     * @param zoom likewise
     * @throws IllegalArgumentException if a value is not finite, or the zoom is 6 or more
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public final void setView(float x, float zoom) {
        setView(x, 0, zoom);
    }

    /**
     * Moves the view, from the next call of draw on.
     *
     * @param x of the camera, in half widths of the picture: positive moves the picture to the left
     * @param y of the camera, in half heights of the picture: positive moves the picture towards the
     *     destination's first row
     * @param zoom less than 6, where the camera reaches the picture, which is too close to show from
     *     5.8 on; {@link VideoRenderer#ZOOM_FIT} fits. At the start 2 if the renderer takes masks of
     *     pixels, otherwise ZOOM_FIT
     * @throws IllegalArgumentException if a value is not finite, or the zoom is 6 or more
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public final void setView(float x, float y, float zoom) {
        handle();
        Check.view(x, y, zoom);
        this.x = x;
        this.y = y;
        this.zoom = zoom;
    }

    /**
     * How far the picture is turned.
     *
     * @return what {@link #setRotation} set
     */
    public final int rotation() {
        return rotation;
    }

    /**
     * Whether the picture is mirrored.
     *
     * @return what {@link #setMirrored} set
     */
    public final boolean isMirrored() {
        return mirrored;
    }

    /**
     * The camera's x.
     *
     * @return what {@link #setView(float, float, float)} set, 0 at the start
     */
    public final float viewX() {
        return x;
    }

    /**
     * The camera's y.
     *
     * @return what {@link #setView(float, float, float)} set, 0 at the start
     */
    public final float viewY() {
        return y;
    }

    /**
     * The camera's zoom.
     *
     * @return what {@link #setView(float, float, float)} set
     */
    public final float zoom() {
        return zoom;
    }

    /**
     * The texture of the stickers.
     *
     * @return GL name; 0 for no stickers
     */
    public final int stickerTexture() {
        return stickerTexture;
    }

    /**
     * The positions of the stickers.
     *
     * @return a copy of x and y of each sticker in turn
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    @NotNull
    public final int[] stickers() {
        return NativeRenderer.stickers(handle());
    }
}
