package android.media;

import java.nio.ByteBuffer;

public final class MediaFormat {
    public static final String KEY_FRAME_RATE = "frame-rate";
    public static final String KEY_HEIGHT = "height";
    public static final String KEY_MAX_INPUT_SIZE = "max-input-size";
    public static final String KEY_MIME = "mime";
    public static final String KEY_WIDTH = "width";
    public static final String MIMETYPE_VIDEO_AVC = "video/avc";

    public native boolean containsKey(String key);

    public native ByteBuffer getByteBuffer(String key);

    public native int getInteger(String key);

    public native String getString(String key);
}
