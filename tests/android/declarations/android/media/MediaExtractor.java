package android.media;

import android.content.Context;
import android.net.Uri;
import java.io.IOException;
import java.nio.ByteBuffer;
import java.util.Map;

public final class MediaExtractor {
    public static final int SEEK_TO_PREVIOUS_SYNC = 0;

    public native void setDataSource(Context context, Uri uri, Map<String, String> headers)
            throws IOException;

    public native int getTrackCount();

    public native MediaFormat getTrackFormat(int track);

    public native void selectTrack(int track);

    public native void seekTo(long timeUs, int mode);

    public native long getSampleTime();

    public native int readSampleData(ByteBuffer buffer, int offset);

    public native boolean advance();

    public native void release();
}
