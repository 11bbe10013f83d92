package org.vornrenderer;

import java.nio.ByteBuffer;
import java.util.Objects;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * Draws one video stream of a fixed size into a GL texture.
 *
 * <pre>{@code
 * try (VideoRenderer renderer =
 *         new VideoRenderer.Builder(VideoSource.RGBA, 640, 480).destination(texture).build()) {
 *     while (playing) {
 *         renderer.draw(nextFrame()); // draws the frame of the call before
 *     }
 * }
 * }</pre>
 *
 * <p><b>Threads.</b> A renderer belongs to the thread that built it and to the OpenGL ES 3 context
 * that was current there. That context must be current in every call. Calls from other threads
 * throw. Close the renderer: the garbage collector does not free it, and logs a warning with the place
 * where a forgotten one was built.
 *
 * <p><b>Buffers</b> are direct. A call reads them from their position to their limit, moves neither
 * of the two, and does not keep the buffer. A frame or a mask has exactly {@link PixelLayout#bytes}
 * bytes between the two.
 *
 * <p><b>Latency.</b> Raw frames and their masks are drawn in the call that takes them, or one call
 * later if the renderer {@linkplain Builder#drawLater() draws later}: the first call draws nothing
 * then, the second draws the first frame. {@link #draw()} draws the last frame that was taken, unless
 * the renderer {@linkplain Builder#drawOnce() draws once}.
 * Compressed video shows the newest picture of the decoder, with a mask of the same call. Before
 * there is a picture, the destination stays as it is.
 *
 * <p><b>Orientation.</b> The first row of a frame becomes the first row of the destination, at
 * t = 0.
 *
 * <p><b>GL state.</b> The area around the picture gets the clear color. A call gives back all GL
 * state that it changes, and works from any state, unless {@link Builder#keepState} says otherwise.
 * Closing leaves nothing behind: neither GL names nor a thread nor Java objects.
 */
public final class VideoRenderer extends ComposingRenderer {
    /** The x and the y of a sticker that is not drawn. */
    public static final int HIDDEN = -1;

    /** The zoom at which the edges of the picture meet those of the destination. */
    public static final float ZOOM_FIT = 1.40031481F;

    /** The time of a picture that has none. */
    public static final long NO_TIME = Long.MIN_VALUE;

    /** Flag of a unit that has parameter sets only and gives no picture. */
    public static final int UNIT_CONFIG = 2;

    /** Flag of the last unit of a stream, which may be empty. {@link #flush()} comes next. */
    public static final int UNIT_END = 4;

    private final int frameBytes;
    private final int maskBytes;

    private VideoRenderer(Settings settings) {
        super(settings);
        frameBytes = settings.frameBytes();
        maskBytes = settings.maskBytes();
    }

    /**
     * Draws the last frame that was taken, or the newest picture of compressed video.
     *
     * @return whether the picture is another one than in the call before; false also before there
     *     is one
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     * @throws RendererException if memory runs out or the platform fails
     */
    public boolean draw() {
        return draw(null, null);
    }

    /**
     * Draws, and takes a raw frame. The class says under Latency when it appears.
     *
     * @param frame the frame, or null for none
     * @return whether the picture is another one than in the call before
     * @throws IllegalArgumentException if the frame is not direct or has another size, or if the
     *     renderer takes no frames
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     * @throws RendererException if memory runs out
     */
    public boolean draw(@Nullable ByteBuffer frame) {
        return draw(frame, null);
    }

    /**
     * Draws, and takes a raw frame and a mask. The class says under Latency when they appear.
     *
     * @param frame the frame, or null for none
     * @param mask the mask, or null to keep the last one. Black pixels give a fixed color with
     *     alpha 0, all others give the picture with the mask's alpha
     * @return whether the picture is another one than in the call before
     * @throws IllegalArgumentException if a buffer is not direct or has another size, or if the
     *     renderer takes none
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     * @throws RendererException if memory runs out or the platform fails
     */
    public boolean draw(@Nullable ByteBuffer frame, @Nullable ByteBuffer mask) {
        long renderer = handle();
        int framePosition = Check.position(frame, frameBytes, "frame");
        int maskPosition = Check.position(mask, maskBytes, "mask");
        return drawComposed(renderer, frame, framePosition, mask, maskPosition, NO_TEXTURE, null);
    }

    /**
     * Draws the application's texture, where that is the {@linkplain VideoSource source}.
     *
     * @param texture GL name of a complete texture, sampled with its own filters; only read in the
     *     call
     * @param matrix 16 floats, column by column, as SurfaceTexture.getTransformMatrix gives them for
     *     this texture; null if the first row of the texture is that of the picture
     * @throws IllegalArgumentException if the texture is not positive, the matrix has not 16 values,
     *     or the renderer draws no textures
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     * @throws RendererException if memory runs out
     */
    public void drawTexture(int texture, @Nullable float[] matrix) {
        long renderer = handle();
        Check.texture(texture);
        Check.matrix(matrix);
        Check.drawsTextures(source());
        drawComposed(renderer, null, 0, null, 0, texture, matrix);
    }

    /**
     * The presentation time of the picture in the destination.
     *
     * @return the time of its unit in microseconds; {@link #NO_TIME} for raw frames and before the
     *     first picture
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public long pictureTimeUs() {
        return NativeRenderer.pictureTimeUs(handle());
    }

    /** What kind of renderer to build. Can be used again, on any thread. */
    public static final class Builder {
        private final Settings settings;

        /**
         * The stream.
         *
         * @param source what the renderer will be given
         * @param width of the frames and, without {@link #outputSize}, of the destination, in
         *     pixels; decoded pictures and textures of another size are stretched
         * @param height of the same, in pixels
         * @throws IllegalArgumentException if a side is not positive, or no buffer can hold a frame
         */
        public Builder(@NotNull VideoSource source, int width, int height) {
            settings = new Settings(source, width, height);
        }

        /**
         * The texture to draw into, in RGBA.
         *
         * @param texture GL name; given storage and linear filters, unless its storage is immutable;
         *     its contents are lost
         * @return this
         * @throws IllegalArgumentException if the name is not positive
         */
        @NotNull
        public Builder destination(int texture) {
            return destination(texture, PixelLayout.RGBA);
        }

        /**
         * The texture to draw into.
         *
         * @param texture GL name; given storage and linear filters, unless its storage is immutable;
         *     its contents are lost
         * @param layout RGB or RGBA
         * @return this
         * @throws IllegalArgumentException if the name is not positive
         */
        @NotNull
        public Builder destination(int texture, @NotNull PixelLayout layout) {
            Check.texture(texture);
            settings.destination = Objects.requireNonNull(layout);
            settings.texture = texture;
            return this;
        }

        /**
         * The size of the destination if it is not that of the frames. The picture is stretched.
         *
         * @param width in pixels
         * @param height in pixels
         * @return this
         * @throws IllegalArgumentException if a side is not positive, or no buffer can hold a picture
         */
        @NotNull
        public Builder outputSize(int width, int height) {
            PixelLayout.RGBA.bytes(width, height);
            settings.outputWidth = width;
            settings.outputHeight = height;
            return this;
        }

        /**
         * Keys the picture by masks of pixels, which come with the calls of draw. Before the first one
         * the whole picture shows. {@link VideoRenderer#setMaskTexture} needs no such announcement.
         *
         * @param layout of the masks
         * @param width of the masks in pixels; a mask is stretched over the picture
         * @param height of the masks in pixels
         * @return this
         * @throws IllegalArgumentException if a side is not positive, or no buffer can hold a mask
         */
        @NotNull
        public Builder mask(@NotNull PixelLayout layout, int width, int height) {
            layout.bytes(width, height); // Throws if no buffer can hold a mask.
            settings.mask = layout;
            settings.maskWidth = width;
            settings.maskHeight = height;
            return this;
        }

        /**
         * Draws raw frames and their masks one call later: GL copies them while the application goes
         * on. For GPUs that make a call wait otherwise; elsewhere it is slower. Undoes {@link #drawOnce}.
         *
         * @return this
         */
        @NotNull
        public Builder drawLater() {
            settings.drawLater = true;
            settings.drawOnce = false;
            return this;
        }

        /**
         * Draws each raw frame only in the call that brings it: {@link VideoRenderer#draw()} without a
         * frame draws nothing then. Saves a copy of frames that fit the destination. Undoes {@link
         * #drawLater}.
         *
         * @return this
         */
        @NotNull
        public Builder drawOnce() {
            settings.drawOnce = true;
            settings.drawLater = false;
            return this;
        }

        /**
         * Whether draws give back all GL state that they change.
         *
         * @param keep true is the usual choice; false is faster, and VERendererExt.h lists the state
         *     that draws leave
         * @return this
         */
        @NotNull
        public Builder keepState(boolean keep) {
            settings.keepState = keep;
            return this;
        }

        /**
         * Builds a renderer that belongs to the calling thread and its current GL context.
         *
         * @return the renderer, to be closed
         * @throws IllegalStateException if there is no destination
         * @throws RendererException if GL, the platform or the memory does not allow it; its reason
         *     says which
         */
        @NotNull
        public VideoRenderer build() {
            return new VideoRenderer(new Settings(settings));
        }
    }
}
