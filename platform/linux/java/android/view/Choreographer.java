package android.view;

import android.os.Handler;
import android.os.Looper;
import java.util.concurrent.TimeUnit;

/** Calls back when the next of 60 frames a second begins, on the thread that asked. */
public final class Choreographer {
    /** What is called. */
    public interface FrameCallback {
        void doFrame(long frameTimeNanos);
    }

    private static final long FRAME_NS = TimeUnit.SECONDS.toNanos(1) / 60;
    private static final ThreadLocal<Choreographer> OF_THREAD =
            ThreadLocal.withInitial(Choreographer::new);

    private final Handler handler = new Handler(Looper.myLooper());
    private final Runnable frame = this::runFrame;
    private FrameCallback callback;

    private Choreographer() {}

    public static Choreographer getInstance() {
        return OF_THREAD.get();
    }

    /** One callback at a time. */
    public void postFrameCallback(FrameCallback newCallback) {
        callback = newCallback;
        long toNext = FRAME_NS - System.nanoTime() % FRAME_NS;
        handler.postDelayed(frame, TimeUnit.NANOSECONDS.toMillis(toNext) + 1);
    }

    public void removeFrameCallback(FrameCallback oldCallback) {
        callback = null;
    }

    private void runFrame() {
        FrameCallback current = callback;
        callback = null;
        if (current != null) {
            current.doFrame(System.nanoTime());
        }
    }
}
