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
 * <p><b>Latency.</b> Raw frames and masks are drawn one call after the call that takes them. The
 * first call of a renderer only creates a texture, and with a mask the first two calls do; their
 * frames and masks are not drawn. {@link #draw()} draws the last frame that was taken. Compressed
 * video shows the newest picture of the decoder.
 *
 * <p><b>Orientation.</b> The first row of a frame becomes the first row of the destination, at
 * t = 0.
 *
 * <p><b>GL state.</b> The area around the picture gets the clear color. A call restores blending,
 * scissor, depth and culling. It changes the program, the framebuffer, the vertex array and the
 * viewport. The C header lists all state.
 */
public final class VideoRenderer implements AutoCloseable {
    /** The x and the y of a sticker that is not drawn. */
    public static final int HIDDEN = -1;

    private static final int NO_TEXTURE = -1;
    private static final int[] NO_POSITIONS = {};

    private final Thread thread = Thread.currentThread();
    private final VideoSource source;
    private final int frameBytes;
    private final int maskBytes;
    private long renderer;
    private boolean mirrored;

    private VideoRenderer(Builder builder) {
        source = builder.source;
        frameBytes = builder.frameBytes;
        maskBytes = builder.maskBytes;
        renderer = builder.create();
    }

    /** Draws the last frame that was taken, or the newest picture of compressed video. */
    public void draw() {
        draw(null, null);
    }

    /**
     * Draws, and takes a raw frame for the next call.
     *
     * @param frame the frame, or null for none
     * @throws IllegalArgumentException if the frame is not direct or has another size, or if the
     *     renderer draws compressed video
     */
    public void draw(ByteBuffer frame) {
        draw(frame, null);
    }

    /**
     * Draws, and takes a raw frame and a mask for the next call.
     *
     * @param frame the frame, or null for none
     * @param mask the mask, or null to keep the last one. Black pixels give a fixed color with
     *     alpha 0, all others give the picture with the mask's alpha
     * @throws IllegalArgumentException if a buffer is not direct or has another size, or if the
     *     renderer takes none
     */
    public void draw(ByteBuffer frame, ByteBuffer mask) {
        checkUsable();
        int framePosition = checkedPosition(frame, frameBytes, "frame");
        int maskPosition = checkedPosition(mask, maskBytes, "mask");
        NativeRenderer.draw(renderer, frame, framePosition, mask, maskPosition, mirrored);
    }

    /**
     * Passes a unit of compressed video to the decoder: an H.264 access unit with start codes, or
     * one JPEG picture. The parameter sets of H.264 come in front of the first key frame. Units come
     * in decoding order, at the frame rate of the video. A unit waits up to 2 ms for a free input
     * buffer of the decoder; then it is dropped.
     *
     * <p>A unit must not be larger than the decoder's input buffers. The platform chooses their size
     * by the renderer's width and height, and the renderer cannot check it.
     *
     * @param unit the unit; an empty one does nothing
     * @throws IllegalArgumentException if the unit is not direct
     * @throws IllegalStateException if the renderer takes raw frames
     */
    public void queueUnit(ByteBuffer unit) {
        checkUsable();
        if (!source.isCompressed()) {
            throw new IllegalStateException("a renderer of " + source + " frames takes no units");
        }
        checkDirect(unit, "unit");
        int position = unit.position();
        NativeRenderer.queueUnit(renderer, unit, position, unit.limit() - position);
    }

    /**
     * Swaps left and right of the picture and of each sticker, from the next call of draw on. The
     * mask and the positions of the stickers stay.
     *
     * @param mirrored true to swap; false at the start
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
     */
    public void setStickers(int texture, int... positions) {
        checkUsable();
        checkTexture(texture);
        if (positions.length % 2 != 0) {
            throw new IllegalArgumentException(positions.length + " numbers are no pairs");
        }
        NativeRenderer.setStickers(renderer, texture, positions);
    }

    /** Draws no stickers from the next call of draw on. */
    public void clearStickers() {
        checkUsable();
        NativeRenderer.setStickers(renderer, NO_TEXTURE, NO_POSITIONS);
    }

    /**
     * Moves the view, from the next call of draw on. A renderer without a mask has a fixed view; a
     * white mask of one pixel makes it movable.
     *
     * @param x of the camera, in half widths of the picture: positive moves the picture to the left
     * @param zoom 2 at the start; 1.4003 fits the picture exactly; the camera passes through the
     *     picture at 6
     * @throws IllegalArgumentException if a value is not finite
     */
    public void setView(float x, float zoom) {
        checkUsable();
        if (!Float.isFinite(x) || !Float.isFinite(zoom)) {
            throw new IllegalArgumentException("no view is at " + x + ", zoom " + zoom);
        }
        NativeRenderer.setView(renderer, x, zoom);
    }

    /**
     * Frees the renderer. A second call does nothing.
     *
     * @throws IllegalStateException on another thread than the one that built the renderer
     */
    @Override
    public void close() {
        checkThread();
        long closing = renderer;
        renderer = 0;
        if (closing != 0) {
            NativeRenderer.destroy(closing);
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

    /** The position of a frame or mask, read once, as another thread may move it. */
    private static int checkedPosition(ByteBuffer buffer, int bytes, String what) {
        if (buffer == null) {
            return 0;
        }
        checkDirect(buffer, what);
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

    private static void checkDirect(ByteBuffer buffer, String what) {
        if (!buffer.isDirect()) {
            throw new IllegalArgumentException("the " + what + " is not in a direct buffer");
        }
    }

    private static void checkTexture(int texture) {
        if (texture <= 0) {
            throw new IllegalArgumentException(texture + " is not a texture");
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
         * @param texture GL name; the first draw allocates its storage, and its contents are lost
         * @return this
         * @throws IllegalArgumentException if the name is not positive
         */
        public Builder destination(int texture) {
            return destination(texture, PixelLayout.RGBA);
        }

        /**
         * The texture to draw into.
         *
         * @param texture GL name; the first draw allocates its storage, and its contents are lost
         * @param layout RGB or RGBA
         * @return this
         * @throws IllegalArgumentException if the name is not positive
         */
        public Builder destination(int texture, PixelLayout layout) {
            checkTexture(texture);
            this.texture = texture;
            destination = Objects.requireNonNull(layout);
            return this;
        }

        /**
         * Keys the picture by a mask, which comes with the calls of draw, and lets the view move.
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
         * Builds a renderer that belongs to the calling thread and its current GL context.
         *
         * @return the renderer, to be closed
         * @throws IllegalStateException if there is no destination or no current context
         * @throws IllegalArgumentException if a side exceeds GL_MAX_TEXTURE_SIZE
         * @throws UnsupportedOperationException if the video is compressed and the Java platform
         *     lacks Android's classes for it
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
            return NativeRenderer.create(
                    texture,
                    destination.destinationCode,
                    source.code,
                    width,
                    height,
                    mask.maskCode,
                    maskWidth,
                    maskHeight);
        }

        /** The native code does not check that these classes exist. */
        private static void checkPlatform() {
            try {
                Class.forName("android.graphics.SurfaceTexture");
                Class.forName("android.view.Surface");
            } catch (ClassNotFoundException | LinkageError e) {
                throw new UnsupportedOperationException("no decoder on this Java platform", e);
            }
        }
    }
}
