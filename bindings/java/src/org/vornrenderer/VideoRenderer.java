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
 * <p><b>Threads.</b> A renderer belongs to the thread that built it, and works in the OpenGL ES 3
 * context that was current there: that context is to be current in every call. Calls from other
 * threads are refused. It has to be closed; nothing else frees what it holds.
 *
 * <p><b>Buffers</b> are direct. They are read from their position to their limit, during the call
 * only, and neither of the two moves. A frame or a mask has exactly the bytes of its picture left:
 * {@link PixelLayout#bytes}.
 *
 * <p><b>Latency.</b> Raw frames and masks are uploaded in the background and drawn by the call
 * after the one that was given them; the first call of a renderer (with a mask, the first two) only
 * makes textures and uses nothing. {@link #draw()} draws what was given last. Compressed video
 * shows the newest picture that the decoder has given out.
 *
 * <p><b>Orientation.</b> The first row of a frame becomes the first row of the destination, the one
 * at t = 0.
 *
 * <p><b>GL state.</b> The picture's surroundings are drawn in the clear colour. Blending, scissor,
 * depth and culling are left as they were; the program, the framebuffer, the vertex array and the
 * viewport are not. The C header lists all of it.
 */
public final class VideoRenderer implements AutoCloseable {
    /** A position of a sticker that is not drawn is this, for x and for y. */
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

    /** Draws what was given last, or the newest picture of compressed video. */
    public void draw() {
        draw(null, null);
    }

    /**
     * Draws, and takes a raw frame for the next call.
     *
     * @param frame the frame, or null for none
     * @throws IllegalArgumentException if the frame is not direct or of another size than the
     *     renderer's, or the renderer is one of compressed video
     */
    public void draw(ByteBuffer frame) {
        draw(frame, null);
    }

    /**
     * Draws, and takes a raw frame and a mask for the next call.
     *
     * @param frame the frame, or null for none
     * @param mask the key of each of the picture's pixels, or null for the one given last: black
     *     gives a fixed colour with alpha 0, anything else the picture with the mask's alpha
     * @throws IllegalArgumentException if a buffer is not direct or of another size than the
     *     renderer's, or the renderer has no use for it
     */
    public void draw(ByteBuffer frame, ByteBuffer mask) {
        checkUsable();
        int framePosition = checkedPosition(frame, frameBytes, "frame");
        int maskPosition = checkedPosition(mask, maskBytes, "mask");
        NativeRenderer.draw(renderer, frame, framePosition, mask, maskPosition, mirrored);
    }

    /**
     * Hands a unit of compressed video to the decoder: an H.264 access unit with start codes, the
     * parameter sets in front of the first key frame, or one JPEG picture. Units come in decoding
     * order and at the video's pace: one waits up to 2 ms for the decoder, and is dropped where
     * that has no room.
     *
     * <p>A unit must not be larger than the decoder's input buffers. Their size is the platform's
     * choice, made from the renderer's width and height, and no one here can know it.
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
     * Swaps the picture's left and right, and each sticker's, from the next call of draw on. The
     * mask and the stickers' positions stay.
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
     * <p>A sticker is 5 % of the output's width wide and 10 % of its height high, centred on x, and
     * ends 10 % of the height before row y; the view moves and scales it with the picture. The
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
     * Moves the view, from the next call of draw on. A renderer without a mask keeps its view: give
     * it a white mask of one pixel to have one that moves.
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

    /** Where a frame or mask begins. A position that another thread moves is read once. */
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
         * @param height likewise
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
         * @param texture GL name; the first draw allocates it anew, whatever it held before
         * @return this
         * @throws IllegalArgumentException if the name is not positive
         */
        public Builder destination(int texture) {
            return destination(texture, PixelLayout.RGBA);
        }

        /**
         * The texture to draw into.
         *
         * @param texture GL name; the first draw allocates it anew, whatever it held before
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
         * @param width of the masks, which are stretched over the picture
         * @param height likewise
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
         * @throws IllegalArgumentException if this GL has no textures so large
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

        /** The native code takes these classes for granted. */
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
