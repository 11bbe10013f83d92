package org.vornrenderer;

import java.nio.ByteBuffer;
import java.util.Objects;

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
 * throw. Close the renderer; the garbage collector does not free it.
 *
 * <p><b>Buffers</b> are direct. A call reads them from their position to their limit, moves neither
 * of the two, and does not keep the buffer. A frame or a mask has exactly {@link PixelLayout#bytes}
 * bytes between the two.
 *
 * <p><b>Latency.</b> Raw frames and their masks are drawn one call after the call that takes them,
 * unless the renderer {@linkplain Builder#drawAtOnce() draws at once}. The first call draws nothing,
 * the second draws the first frame. {@link #draw()} draws the last frame that was taken. Compressed
 * video shows the newest picture of the decoder, with a mask of the same call. Before there is a
 * picture, the destination stays as it is.
 *
 * <p><b>Orientation.</b> The first row of a frame becomes the first row of the destination, at
 * t = 0.
 *
 * <p><b>GL state.</b> The area around the picture gets the clear color. A call gives back all GL
 * state that it changes, and works from any state, unless {@link Builder#keepState} says otherwise.
 * Closing leaves nothing behind: neither GL names nor a thread nor Java objects.
 */
public final class VideoRenderer implements AutoCloseable {
    /** The x and the y of a sticker that is not drawn. */
    public static final int HIDDEN = -1;

    /** The zoom at which the edges of the picture meet those of the destination. */
    public static final float ZOOM_FIT = 1.40031481F;

    /** The time of a picture that has none. */
    public static final long NO_TIME = Long.MIN_VALUE;

    /** Flag of a unit that has parameter sets only and gives no picture. */
    public static final int UNIT_CONFIG = 2;

    /** Flag of the last unit of a stream, which may be empty. {@link #flush} comes next. */
    public static final int UNIT_END = 4;

    private static final int UNIT_FLAGS = UNIT_CONFIG | UNIT_END;
    private static final long UNIT_WAIT_US = 2000;
    private static final float MASKED_ZOOM = 2;
    private static final int NO_TEXTURE = 0;
    private static final int[] NO_POSITIONS = {};

    private final Thread thread = Thread.currentThread();
    private final VideoSource source;
    private final int width;
    private final int height;
    private final int frameBytes;
    private final int maskBytes;
    private long renderer;
    private boolean mirrored;
    private float x;
    private float y;
    private float zoom;
    private int stickerTexture;

    private VideoRenderer(Builder builder) {
        source = builder.source;
        width = builder.width;
        height = builder.height;
        frameBytes = builder.frameBytes;
        maskBytes = builder.maskBytes;
        zoom = maskBytes == 0 ? ZOOM_FIT : MASKED_ZOOM;
        renderer = builder.create();
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
     *     renderer draws compressed video
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     * @throws RendererException if memory runs out
     */
    public boolean draw(ByteBuffer frame) {
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
    public boolean draw(ByteBuffer frame, ByteBuffer mask) {
        checkUsable();
        int framePosition = Check.position(frame, frameBytes, "frame");
        int maskPosition = Check.position(mask, maskBytes, "mask");
        RendererException.check(
                NativeRenderer.draw(
                        renderer, frame, framePosition, mask, maskPosition, mirrored, x, y, zoom));
        return NativeRenderer.isNewPicture(renderer);
    }

    /**
     * Passes a unit of compressed video to the decoder: an H.264 access unit with start codes, or
     * one JPEG picture. The parameter sets of H.264 come in front of the first key frame. Units come
     * in decoding order, at the frame rate of the video. A unit waits up to 2 ms for a free input
     * buffer of the decoder. If there is none, or if the unit does not fit, it is dropped. All units
     * of this call have the time 0.
     *
     * @param unit the unit; an empty one does nothing
     * @throws IllegalArgumentException if the unit is not direct
     * @throws IllegalStateException if the renderer takes raw frames, is closed, or belongs to
     *     another thread
     */
    public void queueUnit(ByteBuffer unit) {
        checkCompressed();
        Check.direct(unit, "unit");
        int position = unit.position();
        int size = unit.limit() - position;
        if (size > 0) {
            NativeRenderer.queueUnit(renderer, unit, position, size, 0, UNIT_WAIT_US, 0);
        }
    }

    /**
     * Passes a unit with its time to the decoder, without waiting.
     *
     * @param unit the unit, as in {@link #queueUnit(ByteBuffer)}
     * @param timeUs presentation time in microseconds, within 292 years of 0
     * @param flags {@link #UNIT_CONFIG}, {@link #UNIT_END}, both or 0
     * @return what became of the unit
     * @throws IllegalArgumentException if the unit is not direct, or is empty without UNIT_END, if
     *     the time or a flag does not exist, or if the stream has ended and was not flushed
     * @throws IllegalStateException if the renderer takes raw frames, is closed, or belongs to
     *     another thread
     */
    public QueueResult queueUnit(ByteBuffer unit, long timeUs, int flags) {
        checkCompressed();
        Check.direct(unit, "unit");
        Check.time(timeUs);
        if ((flags & ~UNIT_FLAGS) != 0) {
            throw new IllegalArgumentException(flags + " are no flags of a unit");
        }
        int position = unit.position();
        int size = unit.limit() - position;
        return QueueResult.of(
                NativeRenderer.queueUnit(renderer, unit, position, size, timeUs, 0, flags));
    }

    /**
     * Drops all units and pictures in the decoder, for seeking. The next unit starts with a key
     * frame. Draws show no further picture of before the flush.
     *
     * @throws IllegalStateException if the renderer takes raw frames, is closed, or belongs to
     *     another thread
     * @throws RendererException if the decoder is no longer of use
     */
    public void flush() {
        checkCompressed();
        RendererException.check(NativeRenderer.flush(renderer));
    }

    /**
     * The state of the decoder. Allocates an object.
     *
     * @return the state now
     * @throws IllegalStateException if the renderer takes raw frames, is closed, or belongs to
     *     another thread
     */
    public DecoderState decoderState() {
        checkCompressed();
        long[] values = new long[DecoderState.VALUES];
        RendererException.check(NativeRenderer.getDecoderState(renderer, values));
        return new DecoderState(values);
    }

    /**
     * The presentation time of the picture in the destination.
     *
     * @return the time of its unit in microseconds; {@link #NO_TIME} for raw frames and before the
     *     first picture
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public long pictureTimeUs() {
        checkUsable();
        return NativeRenderer.pictureTimeUs(renderer);
    }

    /**
     * Swaps left and right of the picture and of each sticker, from the next call of draw on. The
     * mask and the positions of the stickers stay.
     *
     * @param mirrored true to swap; false at the start
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public void setMirrored(boolean mirrored) {
        checkUsable();
        this.mirrored = mirrored;
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
     *     column; copied. A pair of {@link #HIDDEN} is left out.
     * @throws IllegalArgumentException if the texture is not positive, or an x has no y
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     * @throws RendererException if memory runs out
     */
    public void setStickers(int texture, int... positions) {
        checkUsable();
        Check.texture(texture);
        Check.pairs(positions);
        putStickers(texture, positions);
    }

    /**
     * Draws no stickers from the next call of draw on.
     *
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public void clearStickers() {
        checkUsable();
        putStickers(NO_TEXTURE, NO_POSITIONS);
    }

    private void putStickers(int texture, int[] positions) {
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
    public void setView(float x, float zoom) {
        setView(x, 0, zoom);
    }

    /**
     * Moves the view, from the next call of draw on.
     *
     * @param x of the camera, in half widths of the picture: positive moves the picture to the left
     * @param y of the camera, in half heights of the picture: positive moves the picture towards the
     *     destination's first row
     * @param zoom less than 6, where the camera reaches the picture; {@link #ZOOM_FIT} fits. At the
     *     start 2 if the renderer takes masks, otherwise ZOOM_FIT
     * @throws IllegalArgumentException if a value is not finite, or the zoom is 6 or more
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public void setView(float x, float y, float zoom) {
        checkUsable();
        Check.view(x, y, zoom);
        this.x = x;
        this.y = y;
        this.zoom = zoom;
    }

    /**
     * What the renderer is given.
     *
     * @return the source of the builder
     */
    public VideoSource source() {
        return source;
    }

    /**
     * The width of frames and destination.
     *
     * @return pixels
     */
    public int width() {
        return width;
    }

    /**
     * The height of frames and destination.
     *
     * @return pixels
     */
    public int height() {
        return height;
    }

    /**
     * Whether the picture is mirrored.
     *
     * @return what {@link #setMirrored} set
     */
    public boolean isMirrored() {
        return mirrored;
    }

    /**
     * The camera's x.
     *
     * @return what {@link #setView(float, float, float)} set, 0 at the start
     */
    public float viewX() {
        return x;
    }

    /**
     * The camera's y.
     *
     * @return what {@link #setView(float, float, float)} set, 0 at the start
     */
    public float viewY() {
        return y;
    }

    /**
     * The camera's zoom.
     *
     * @return what {@link #setView(float, float, float)} set
     */
    public float zoom() {
        return zoom;
    }

    /**
     * The texture of the stickers.
     *
     * @return GL name; 0 for no stickers
     */
    public int stickerTexture() {
        return stickerTexture;
    }

    /**
     * The positions of the stickers.
     *
     * @return a copy of x and y of each sticker in turn
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    public int[] stickers() {
        checkUsable();
        return NativeRenderer.stickers(renderer);
    }

    /**
     * Frees the renderer, with its context current. A second call does nothing.
     *
     * @throws IllegalStateException on another thread than the one that built the renderer
     */
    @Override
    public void close() {
        close(false);
    }

    /**
     * Frees the renderer without a GL call, after its context was lost. A second call does nothing.
     *
     * @throws IllegalStateException on another thread than the one that built the renderer
     */
    public void closeAfterContextLoss() {
        close(true);
    }

    private void close(boolean contextLost) {
        checkThread();
        long closing = renderer;
        renderer = 0;
        if (closing != 0) {
            NativeRenderer.destroy(closing, contextLost);
        }
    }

    private void checkCompressed() {
        checkUsable();
        if (!source.isCompressed()) {
            throw new IllegalStateException("a renderer of " + source + " frames takes no units");
        }
    }

    private void checkUsable() {
        checkThread();
        if (renderer == 0) {
            throw new IllegalStateException("the renderer is closed");
        }
    }

    private void checkThread() {
        Thread caller = Thread.currentThread();
        if (caller != thread) {
            throw new IllegalStateException(
                    "the renderer belongs to " + thread.getName() + ", not to " + caller.getName());
        }
    }

    /** What kind of renderer to build. Can be used again, on any thread. */
    public static final class Builder {
        private final VideoSource source;
        private final int width;
        private final int height;
        private final int frameBytes;
        private int texture;
        private PixelLayout destination = PixelLayout.RGBA;
        private PixelLayout mask = PixelLayout.RGB;
        private int maskWidth;
        private int maskHeight;
        private int maskBytes;
        private boolean drawAtOnce;
        private boolean keepState = true;

        /**
         * The stream.
         *
         * @param source what the renderer will be given
         * @param width of the frames and of the destination, in pixels; decoded pictures of another
         *     size are stretched
         * @param height of the same, in pixels
         * @throws IllegalArgumentException if a side is not positive, or no buffer can hold a frame
         */
        public Builder(VideoSource source, int width, int height) {
            PixelLayout layout = source.isCompressed() ? PixelLayout.RGBA : source.layout;
            int bytes = layout.bytes(width, height);
            this.source = source;
            this.width = width;
            this.height = height;
            frameBytes = source.isCompressed() ? 0 : bytes;
        }

        /**
         * The texture to draw into, in RGBA.
         *
         * @param texture GL name; given storage and linear filters, unless its storage is immutable;
         *     its contents are lost
         * @return this
         * @throws IllegalArgumentException if the name is not positive
         */
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
        public Builder destination(int texture, PixelLayout layout) {
            Check.texture(texture);
            this.texture = texture;
            destination = Objects.requireNonNull(layout);
            return this;
        }

        /**
         * Keys the picture by a mask, which comes with the calls of draw. Before the first one the
         * whole picture shows.
         *
         * @param layout of the masks
         * @param width of the masks in pixels; a mask is stretched over the picture
         * @param height of the masks in pixels
         * @return this
         * @throws IllegalArgumentException if a side is not positive, or no buffer can hold a mask
         */
        public Builder mask(PixelLayout layout, int width, int height) {
            maskBytes = layout.bytes(width, height);
            mask = layout;
            maskWidth = width;
            maskHeight = height;
            return this;
        }

        /**
         * Draws raw frames and their masks in the call that brings them. Without this, GL copies them
         * while the application goes on, and the next call draws them.
         *
         * @return this
         */
        public Builder drawAtOnce() {
            drawAtOnce = true;
            return this;
        }

        /**
         * Whether draws give back all GL state that they change.
         *
         * @param keep true is the usual choice; false is faster, and VERendererExt.h lists the state
         *     that draws leave
         * @return this
         */
        public Builder keepState(boolean keep) {
            keepState = keep;
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
        public VideoRenderer build() {
            if (texture == 0) {
                throw new IllegalStateException("the renderer has no destination");
            }
            if (source.isCompressed()) {
                checkPlatform();
            }
            return new VideoRenderer(this);
        }

        private long create() {
            long[] created = new long[1];
            RendererException.check(
                    NativeRenderer.create(
                            texture,
                            destination.destinationCode,
                            source.code,
                            width,
                            height,
                            mask.maskCode,
                            maskWidth,
                            maskHeight,
                            drawAtOnce,
                            keepState,
                            created));
            return created[0];
        }

        /** The classes are looked up here because the exception names the one that is missing. */
        private static void checkPlatform() {
            try {
                Class.forName("android.graphics.SurfaceTexture");
                Class.forName("android.view.Surface");
            } catch (ClassNotFoundException | LinkageError e) {
                throw new RendererException(
                        RendererException.Reason.NO_DECODER, "no decoder on this Java platform", e);
            }
        }
    }
}
