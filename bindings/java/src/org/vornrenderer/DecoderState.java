package org.vornrenderer;

import org.jetbrains.annotations.Nullable;

/** The state of a decoder at one moment. */
public final class DecoderState {
    static final int VALUES = 14;

    /** Why the decoder is no longer of use; null while it runs. */
    @Nullable public final RendererException.Reason failure;

    /** The platform's own code (media_status_t) of a failure, or 0. */
    public final int platformCode;

    /** Units that the decoder took. */
    public final long unitsQueued;

    /** Units that it did not take; each try counts. */
    public final long unitsDropped;

    /** Pictures that came out of the decoder. */
    public final long picturesDecoded;

    /** Pictures that were drawn as a new one. */
    public final long picturesShown;

    /** Bytes that a unit may have; 0 before the first unit. */
    public final long unitCapacity;

    /** Width of the decoder's pictures with their padding, in pixels; 0 until known. */
    public final int width;

    /** Height of the decoder's pictures with their padding, in pixels; 0 until known. */
    public final int height;

    /** The first column that shows. */
    public final int cropLeft;

    /** The first row that shows. */
    public final int cropTop;

    /** The last column that shows. */
    public final int cropRight;

    /** The last row that shows. */
    public final int cropBottom;

    /** Whether the last picture before the end of the stream has come out. A flush resets it. */
    public final boolean endOfStream;

    DecoderState(long[] values) {
        failure = values[0] == 0 ? null : RendererException.Reason.of((int) values[0]);
        platformCode = (int) values[1];
        unitsQueued = values[2];
        unitsDropped = values[3];
        picturesDecoded = values[4];
        picturesShown = values[5];
        unitCapacity = values[6];
        width = (int) values[7];
        height = (int) values[8];
        cropLeft = (int) values[9];
        cropTop = (int) values[10];
        cropRight = (int) values[11];
        cropBottom = (int) values[12];
        endOfStream = values[13] != 0;
    }
}
