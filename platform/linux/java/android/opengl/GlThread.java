package android.opengl;

import java.util.ArrayDeque;
import java.util.Queue;
import java.util.concurrent.TimeUnit;

/** The thread of a GLSurfaceView. */
final class GlThread extends Thread {
    private static final long FRAME_NS = TimeUnit.SECONDS.toNanos(1) / 60;

    static {
        System.loadLibrary("android");
    }

    private final GLSurfaceView.Renderer renderer;
    private final Queue<Runnable> events = new ArrayDeque<>();
    private int width;
    private int height;
    private boolean resized;
    private boolean pauseWanted;
    private boolean paused;
    private boolean ending;

    /** The native context, on this thread only; 0 for none. */
    private long context;

    GlThread(GLSurfaceView.Renderer renderer) {
        super("GLThread");
        setDaemon(true);
        this.renderer = renderer;
    }

    synchronized void queue(Runnable event) {
        events.add(event);
        notifyAll();
    }

    synchronized void setSize(int newWidth, int newHeight) {
        width = newWidth;
        height = newHeight;
        resized = true;
        notifyAll();
    }

    synchronized void setPaused(boolean pause) {
        pauseWanted = pause;
        notifyAll();
        while (isAlive() && paused != pause) {
            waitUninterruptibly();
        }
    }

    synchronized void end() {
        ending = true;
        notifyAll();
        while (isAlive() && ending) {
            waitUninterruptibly();
        }
    }

    void endContext() {
        if (context != 0) {
            nativeEnd(context);
            context = 0;
        }
    }

    @Override
    public void run() {
        long due = System.nanoTime();
        while (true) {
            Runnable event = next();
            if (event != null) {
                event.run();
                continue;
            }
            synchronized (this) {
                if (ending) {
                    endContext();
                    ending = false;
                    notifyAll();
                    return;
                }
            }
            drawFrame();
            due = Math.max(due + FRAME_NS, System.nanoTime() - FRAME_NS);
            sleepUntil(due);
        }
    }

    /** The next event, or null when it is time to draw or to end. */
    private synchronized Runnable next() {
        while (events.isEmpty() && !ending && (width == 0 || pauseWanted)) {
            setPausedNow(pauseWanted);
            waitUninterruptibly();
        }
        if (events.isEmpty()) {
            setPausedNow(false);
        }
        return events.poll();
    }

    private void setPausedNow(boolean pause) {
        if (pause) {
            endContext();
        }
        paused = pause;
        notifyAll();
    }

    private void drawFrame() {
        boolean created = context == 0;
        boolean changed;
        int w;
        int h;
        synchronized (this) {
            changed = resized || created;
            resized = false;
            w = width;
            h = height;
        }
        if (created) {
            context = nativeBegin();
        }
        if (changed) {
            nativeResize(context, w, h);
        }
        if (created) {
            renderer.onSurfaceCreated(null, null);
        }
        if (changed) {
            renderer.onSurfaceChanged(null, w, h);
        }
        renderer.onDrawFrame(null);
        nativeSwap(context);
    }

    private void waitUninterruptibly() {
        try {
            wait();
        } catch (InterruptedException e) {
            throw new IllegalStateException(e);
        }
    }

    private static void sleepUntil(long due) {
        try {
            TimeUnit.NANOSECONDS.sleep(due - System.nanoTime());
        } catch (InterruptedException e) {
            throw new IllegalStateException(e);
        }
    }

    private static native long nativeBegin();

    private static native void nativeResize(long context, int width, int height);

    private static native void nativeSwap(long context);

    private static native void nativeEnd(long context);
}
