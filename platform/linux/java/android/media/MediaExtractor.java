package android.media;

import android.content.Context;
import android.net.Uri;
import java.io.FileDescriptor;
import java.io.IOException;
import java.lang.ref.Cleaner;
import java.nio.ByteBuffer;
import java.util.Map;

/** Reads the access units of a file. H.264 comes with start codes, whatever the file has. */
public final class MediaExtractor {
    public static final int SEEK_TO_PREVIOUS_SYNC = 0;

    private static final Cleaner CLEANER;

    static {
        System.loadLibrary("mediandk");
        CLEANER = Cleaner.create();
    }

    private final long file = nativeCreate();
    private final Cleaner.Cleanable cleanable = register(this, file);

    private static Cleaner.Cleanable register(MediaExtractor self, long file) {
        return CLEANER.register(self, () -> nativeDestroy(file));
    }

    /** @throws IOException if the file cannot be read */
    public void setDataSource(Context context, Uri uri, Map<String, String> headers)
            throws IOException {
        open("file:" + uri.getPath());
    }

    /** @throws IOException if the file cannot be read */
    public void setDataSource(FileDescriptor fd, long offset, long length) throws IOException {
        String part = "subfile,,start," + offset + ",end," + (offset + length) + ",,:";
        open(part + "/proc/self/fd/" + nativeNumber(fd));
    }

    private void open(String address) throws IOException {
        String error = nativeOpen(file, address);
        if (error != null) {
            throw new IOException(address + ": " + error);
        }
    }

    public int getTrackCount() {
        return nativeTrackCount(file);
    }

    public MediaFormat getTrackFormat(int index) {
        MediaFormat format = new MediaFormat();
        format.setString(MediaFormat.KEY_MIME, nativeMime(file, index));
        long[] values = nativeVideoFormat(file, index);
        if (values.length > 0) {
            format.setInteger(MediaFormat.KEY_WIDTH, (int) values[0]);
            format.setInteger(MediaFormat.KEY_HEIGHT, (int) values[1]);
            format.setInteger(MediaFormat.KEY_ROTATION, (int) values[2]);
            format.setInteger(MediaFormat.KEY_FRAME_RATE, (int) values[3]);
            format.setLong(MediaFormat.KEY_DURATION, values[4]);
        }
        for (int i = 0; i < 2; ++i) {
            byte[] parameterSets = nativeParameterSets(file, index, i);
            if (parameterSets != null) {
                format.setByteBuffer("csd-" + i, ByteBuffer.wrap(parameterSets));
            }
        }
        return format;
    }

    public void selectTrack(int index) {
        nativeSelectTrack(file, index);
    }

    /** Continues with the key frame at or before the time. The mode is SEEK_TO_PREVIOUS_SYNC. */
    public void seekTo(long timeUs, int mode) {
        nativeSeek(file, timeUs);
    }

    /** Presentation time of the unit in microseconds; -1 after the last. */
    public long getSampleTime() {
        return nativeSampleTime(file);
    }

    /**
     * Copies the unit.
     *
     * @return its size in bytes; -1 after the last
     * @throws IllegalArgumentException if it does not fit
     */
    public int readSampleData(ByteBuffer byteBuf, int offset) {
        int size = nativeReadSample(file, byteBuf, offset, byteBuf.capacity());
        if (size == -2) {
            throw new IllegalArgumentException("the unit does not fit the buffer");
        }
        return size;
    }

    /** @return false after the last unit */
    public boolean advance() {
        return nativeAdvance(file);
    }

    /** Nothing but release may be called after this. */
    public void release() {
        cleanable.clean();
    }

    private static native long nativeCreate();

    private static native void nativeDestroy(long file);

    private static native int nativeNumber(FileDescriptor fd);

    private static native String nativeOpen(long file, String address);

    private static native int nativeTrackCount(long file);

    private static native String nativeMime(long file, int track);

    /** Width, height, rotation, frame rate, duration; empty if the track is no video. */
    private static native long[] nativeVideoFormat(long file, int track);

    private static native byte[] nativeParameterSets(long file, int track, int index);

    private static native void nativeSelectTrack(long file, int track);

    private static native void nativeSeek(long file, long timeUs);

    private static native long nativeSampleTime(long file);

    private static native int nativeReadSample(long file, ByteBuffer buffer, int offset, int capacity);

    private static native boolean nativeAdvance(long file);
}
