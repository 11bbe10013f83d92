package org.vornrenderer;

/** Faults of the next decoder that the calling thread creates, as in linux_platform/Host.h. */
public final class NextDecoder {
    public static final int CREATE = 1;
    public static final int ALL = (1 << 10) - 1;
    public static final int ERROR_RECLAIMED = 1101;

    static {
        System.loadLibrary("next_decoder");
    }

    private NextDecoder() {}

    /** The calls fail with the error once so many pictures have come out. */
    public static native void fails(int calls, int error, long afterPictures);
}
