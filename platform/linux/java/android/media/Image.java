package android.media;

import android.graphics.Rect;
import android.os.Build;
import java.nio.ByteBuffer;

/** An image of a camera or a decoder. */
public abstract class Image implements AutoCloseable {
    /** One of its planes. */
    public abstract static class Plane {
        Plane() {}

        public abstract int getRowStride();

        public abstract int getPixelStride();

        public abstract ByteBuffer getBuffer();
    }

    Image() {}

    public abstract int getFormat();

    public abstract int getWidth();

    public abstract int getHeight();

    /** Nanoseconds. */
    public abstract long getTimestamp();

    public abstract Plane[] getPlanes();

    /** A new object. */
    public Rect getCropRect() {
        return new Rect(0, 0, getWidth(), getHeight());
    }

    /** @throws NoSuchMethodError before API level 33 */
    public int getDataSpace() {
        if (Build.VERSION.SDK_INT < Build.VERSION_CODES.TIRAMISU) {
            throw new NoSuchMethodError("getDataSpace");
        }
        return 0;
    }

    @Override
    public abstract void close();
}
