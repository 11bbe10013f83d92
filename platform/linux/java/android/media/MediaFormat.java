package android.media;

import java.nio.ByteBuffer;
import java.util.HashMap;
import java.util.Map;

/** What is known of a track. */
public final class MediaFormat {
    public static final String KEY_DURATION = "durationUs";
    public static final String KEY_FRAME_RATE = "frame-rate";
    public static final String KEY_HEIGHT = "height";
    public static final String KEY_MAX_INPUT_SIZE = "max-input-size";
    public static final String KEY_MIME = "mime";
    public static final String KEY_ROTATION = "rotation-degrees";
    public static final String KEY_WIDTH = "width";
    public static final String MIMETYPE_VIDEO_AVC = "video/avc";

    private final Map<String, Object> values = new HashMap<>();

    public boolean containsKey(String name) {
        return values.containsKey(name);
    }

    public String getString(String name) {
        return (String) values.get(name);
    }

    /** @throws NullPointerException if there is no such value */
    public int getInteger(String name) {
        return (Integer) values.get(name);
    }

    /** @throws NullPointerException if there is no such value */
    public long getLong(String name) {
        return (Long) values.get(name);
    }

    public ByteBuffer getByteBuffer(String name) {
        return (ByteBuffer) values.get(name);
    }

    public void setString(String name, String value) {
        values.put(name, value);
    }

    public void setInteger(String name, int value) {
        values.put(name, value);
    }

    public void setLong(String name, long value) {
        values.put(name, value);
    }

    public void setByteBuffer(String name, ByteBuffer bytes) {
        values.put(name, bytes);
    }
}
