package android.opengl;

import java.util.ArrayDeque;
import java.util.Queue;
import java.util.concurrent.TimeUnit;

/** The thread of a GLSurfaceView. */
final class GlThread extends Thread {
    private static final long FRAME_NS = TimeUnit.SECONDS.toNanos(1) / 60;

    private final GLSurfaceView.Renderer renderer;
    private final Queue<Runnable> events = new ArrayDeque<>();
    private int width;
    private int height;
    private boolean resized;
    private boolean pauseWanted;
    private boolean paused;
    private boolean ending;

    private final EGLDisplay display = EGL14.eglGetDisplay(EGL14.EGL_DEFAULT_DISPLAY);

    /** On this thread only; null for none. */
    private EGLContext context;

    private EGLConfig config;
    private EGLSurface surface = EGL14.EGL_NO_SURFACE;

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
        if (context != null) {
            dropSurface();
            EGL14.eglDestroyContext(display, context);
            context = null;
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
        boolean created = context == null;
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
            begin();
        }
        if (changed) {
            resize(w, h);
        }
        if (created) {
            renderer.onSurfaceCreated(null, null);
        }
        if (changed) {
            renderer.onSurfaceChanged(null, w, h);
        }
        renderer.onDrawFrame(null);
        EGL14.eglSwapBuffers(display, surface);
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

    private void begin() {
        int[] attributes = {
            EGL14.EGL_SURFACE_TYPE, EGL14.EGL_PBUFFER_BIT,
            EGL14.EGL_RENDERABLE_TYPE, EGLExt.EGL_OPENGL_ES3_BIT_KHR,
            EGL14.EGL_RED_SIZE, 8, EGL14.EGL_GREEN_SIZE, 8, EGL14.EGL_BLUE_SIZE, 8, EGL14.EGL_NONE
        };
        int[] version = {EGL14.EGL_CONTEXT_CLIENT_VERSION, 3, EGL14.EGL_NONE};
        EGLConfig[] chosen = new EGLConfig[1];
        EGL14.eglInitialize(display, null, 0, null, 0);
        EGL14.eglChooseConfig(display, attributes, 0, chosen, 0, 1, new int[1], 0);
        config = chosen[0];
        context = EGL14.eglCreateContext(display, config, EGL14.EGL_NO_CONTEXT, version, 0);
    }

    private void resize(int w, int h) {
        int[] size = {EGL14.EGL_WIDTH, w, EGL14.EGL_HEIGHT, h, EGL14.EGL_NONE};
        dropSurface();
        surface = EGL14.eglCreatePbufferSurface(display, config, size, 0);
        EGL14.eglMakeCurrent(display, surface, surface, context);
    }

    private void dropSurface() {
        EGL14.eglMakeCurrent(
                display, EGL14.EGL_NO_SURFACE, EGL14.EGL_NO_SURFACE, EGL14.EGL_NO_CONTEXT);
        if (surface != EGL14.EGL_NO_SURFACE) {
            EGL14.eglDestroySurface(display, surface);
            surface = EGL14.EGL_NO_SURFACE;
        }
    }
}
