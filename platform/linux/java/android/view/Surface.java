package android.view;

import android.graphics.SurfaceTexture;
import java.lang.ref.Cleaner;

/** Connects native producers of pictures to a SurfaceTexture. */
public class Surface {
    private static final Cleaner CLEANER;

    static {
        System.loadLibrary("android");
        CLEANER = Cleaner.create();
    }

    private final Cleaner.Cleanable reference;
    /** The native window, with one reference; 0 after release(). */
    private long window;

    private static final class Destruction implements Runnable {
        private final long window;

        Destruction(long window) {
            this.window = window;
        }

        @Override
        public void run() {
            nativeDestroy(window);
        }
    }

    /** @throws IllegalArgumentException for null, and for a texture that was released */
    public Surface(SurfaceTexture surfaceTexture) {
        if (surfaceTexture == null) {
            throw new IllegalArgumentException("surfaceTexture must not be null");
        }
        final long created = nativeCreate(surfaceTexture);
        window = created;
        reference = CLEANER.register(this, new Destruction(created));
    }

    public synchronized boolean isValid() {
        return window != 0;
    }

    /** Drops this object's reference to the window. Native owners keep theirs. */
    public synchronized void release() {
        window = 0;
        reference.clean();
    }

    private static native long nativeCreate(SurfaceTexture surfaceTexture);

    private static native void nativeDestroy(long window);
}
