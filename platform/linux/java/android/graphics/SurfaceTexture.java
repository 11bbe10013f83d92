package android.graphics;

import java.lang.ref.Cleaner;
import java.util.concurrent.atomic.AtomicInteger;

/**
 * Shows the newest picture posted to its surfaces in a GL texture of the target
 * GL_TEXTURE_EXTERNAL_OES.
 *
 * <p>updateTexImage belongs to the thread with the texture's GL context current; all else may be
 * called on any thread.
 */
public class SurfaceTexture {
    /** Called for each new picture, on the thread that posts it. */
    public interface OnFrameAvailableListener {
        void onFrameAvailable(SurfaceTexture surfaceTexture);
    }

    private static final Cleaner CLEANER;

    static {
        System.loadLibrary("android");
        CLEANER = Cleaner.create();
    }

    private static final int MATRIX_SIZE = 16;

    /**
     * The garbage collector does not see the native memory of pictures. It would leave that of
     * objects without release() until the Java heap is full, so it is started now and then.
     */
    private static final int CREATIONS_PER_COLLECTION = 8;

    private static final AtomicInteger creations = new AtomicInteger();

    /** Not a lambda: the first one of a process takes the JVM milliseconds. */
    private static final class Destruction implements Runnable {
        private final long consumer;

        Destruction(long consumer) {
            this.consumer = consumer;
        }

        @Override
        public void run() {
            nativeDestroy(consumer);
        }
    }

    /** The native part, with the lifetime of this object. */
    private final long consumer;
    private volatile OnFrameAvailableListener listener;

    /** Needs no GL context yet. */
    public SurfaceTexture(int texName) {
        if (creations.incrementAndGet() % CREATIONS_PER_COLLECTION == 0) {
            System.gc();
        }
        final long created = nativeCreate(texName);
        consumer = created;
        CLEANER.register(this, new Destruction(created));
    }

    /**
     * Latches the newest picture, if it is new, and leaves the texture bound to
     * GL_TEXTURE_EXTERNAL_OES of the active unit. No other GL state changes.
     *
     * @throws IllegalStateException without a current GL context, if it is not that of the first
     *     call, or if the texture is detached
     * @throws RuntimeException after release(), or if the picture is too large
     */
    public void updateTexImage() {
        nativeUpdateTexImage(consumer);
    }

    /**
     * Lets go of the context, and deletes the texture. The latched picture stays.
     *
     * @throws RuntimeException if there is no texture, or it is one of another context
     */
    public void detachFromGLContext() {
        nativeDetach(consumer);
    }

    /**
     * Shows the pictures in a texture of the current context.
     *
     * @param texName from glGenTextures, not bound yet
     * @throws RuntimeException if there is a texture already, or no context is current
     */
    public void attachToGLContext(int texName) {
        nativeAttach(consumer, texName);
    }

    /** Sets the size of pictures for producers that set none. A decoder sets its size. */
    public void setDefaultBufferSize(int width, int height) {
        nativeSetDefaultBufferSize(consumer, width, height);
    }

    /** Time stamp of the latched picture in nanoseconds; 0 before the first. */
    public long getTimestamp() {
        return nativeGetTimestamp(consumer);
    }

    /**
     * Gives the matrix, column by column, that maps a place (s, t, 0, 1) in the upright picture, with
     * t = 0 at the bottom, to the place in the texture where it is sampled. The identity before the
     * first picture.
     *
     * <p>The picture's first row is at t = 0 of the texture, so the matrix is a vertical flip for a
     * picture that fills its buffer. It also has the rotation that the producer asks for, and the crop
     * of a picture that does not fill its buffer: that leaves out half a texel on each side of a
     * direction that is cropped, so that linear filtering does not reach the padding.
     *
     * @throws IllegalArgumentException unless there is room for exactly 16 values
     */
    public void getTransformMatrix(float[] mtx) {
        if (mtx.length != MATRIX_SIZE) {
            throw new IllegalArgumentException("a matrix has 16 values, not " + mtx.length);
        }
        nativeGetTransformMatrix(consumer, mtx);
    }

    /** Replaces the listener; null for none. */
    public void setOnFrameAvailableListener(OnFrameAvailableListener newListener) {
        listener = newListener;
        nativeListen(consumer, newListener != null);
    }

    /** Frees the pictures. Producers and updateTexImage fail after this. */
    public void release() {
        nativeRelease(consumer);
    }

    public boolean isReleased() {
        return nativeIsReleased(consumer);
    }

    /** Called from native code. */
    private void onFrameAvailable() {
        OnFrameAvailableListener current = listener;
        if (current != null) {
            current.onFrameAvailable(this);
        }
    }

    private static native long nativeCreate(int texName);

    private static native void nativeDestroy(long consumer);

    private native void nativeUpdateTexImage(long consumer);

    private native void nativeDetach(long consumer);

    private native void nativeAttach(long consumer, int texName);

    private native void nativeSetDefaultBufferSize(long consumer, int width, int height);

    private native long nativeGetTimestamp(long consumer);

    private native void nativeGetTransformMatrix(long consumer, float[] mtx);

    private native void nativeListen(long consumer, boolean listening);

    private native void nativeRelease(long consumer);

    private native boolean nativeIsReleased(long consumer);
}
