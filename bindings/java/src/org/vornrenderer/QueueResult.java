package org.vornrenderer;

/** What became of a unit of compressed video. */
public enum QueueResult {
    /** The decoder has a copy of the unit. */
    QUEUED,
    /** The decoder has no room now. Give the unit again, after the next draw for example. */
    NO_ROOM,
    /** The unit is larger than {@link DecoderState#unitCapacity}. */
    TOO_LARGE,
    /** The decoder is no longer of use. {@link DecoderState#failure} says why. */
    FAILED;

    private static final int OK = 0;
    private static final int AGAIN = 1;
    private static final int PICTURE_SIZE = -9;
    private static final int DECODER_FAILED = -12;
    private static final int DECODER_RECLAIMED = -13;
    private static final int UNIT_SIZE = -14;

    static QueueResult of(int result) {
        switch (result) {
            case OK:
                return QUEUED;
            case AGAIN:
                return NO_ROOM;
            case UNIT_SIZE:
                return TOO_LARGE;
            case PICTURE_SIZE:
            case DECODER_FAILED:
            case DECODER_RECLAIMED:
                return FAILED;
            default:
                throw RendererException.of(result);
        }
    }
}
