package org.vornrenderer;

import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;

/** The calls of a renderer for compressed video. */
abstract class DecodingRenderer extends AbstractRenderer {
    private static final int UNIT_FLAGS = VideoRenderer.UNIT_CONFIG | VideoRenderer.UNIT_END;
    private static final long UNIT_WAIT_US = 2000;

    DecodingRenderer(Settings settings) {
        super(settings);
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
     * @throws IllegalStateException if the renderer draws no compressed video, is closed, or belongs to
     *     another thread
     */
    public final void queueUnit(@NotNull ByteBuffer unit) {
        long renderer = decodingHandle();
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
     * @param flags {@link VideoRenderer#UNIT_CONFIG}, {@link VideoRenderer#UNIT_END}, both or 0
     * @return what became of the unit
     * @throws IllegalArgumentException if the unit is not direct, or is empty without UNIT_END, if
     *     the time or a flag does not exist, or if the stream has ended and was not flushed
     * @throws IllegalStateException if the renderer draws no compressed video, is closed, or belongs to
     *     another thread
     */
    @NotNull
    public final QueueResult queueUnit(@NotNull ByteBuffer unit, long timeUs, int flags) {
        long renderer = decodingHandle();
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
     * @throws IllegalStateException if the renderer draws no compressed video, is closed, or belongs to
     *     another thread
     * @throws RendererException if the decoder is no longer of use
     */
    public final void flush() {
        RendererException.check(NativeRenderer.flush(decodingHandle()));
    }

    /**
     * The state of the decoder. Allocates an object.
     *
     * @return the state now
     * @throws IllegalStateException if the renderer draws no compressed video, is closed, or belongs to
     *     another thread
     */
    @NotNull
    public final DecoderState decoderState() {
        long renderer = decodingHandle();
        long[] values = new long[DecoderState.VALUES];
        RendererException.check(NativeRenderer.getDecoderState(renderer, values));
        return new DecoderState(values);
    }

    /** The native renderer if it draws compressed video; throws otherwise. */
    private long decodingHandle() {
        long checked = handle();
        if (!source().isCompressed()) {
            throw new IllegalStateException(
                    "a renderer of " + source() + " takes no units");
        }
        return checked;
    }
}
