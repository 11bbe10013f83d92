package org.vornrenderer;

import android.graphics.SurfaceTexture;
import android.os.Handler;
import android.os.HandlerThread;
import android.view.Choreographer;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * The GL thread of a TextureView. As in GLSurfaceView, it draws for each frame of the screen while
 * there is a surface and no pause, keeps its context while there is no surface, and frees it in a pause.
 */
final class TextureGlThread implements Choreographer.FrameCallback {
    /** A thread that is stuck must not hold up the UI thread. */
    private static final long PATIENCE_MS = 1000;

    private final VideoEngine engine;
    private final HandlerThread thread = new HandlerThread("VornTextureView");
    private final Handler handler;

    // All below belongs to the thread.
    @Nullable private EglContext egl;
    @Nullable private SurfaceTexture surface;
    private int width;
    private int height;
    private boolean paused;
    private boolean scheduled;

    TextureGlThread(@NotNull VideoEngine engine) {
        this.engine = engine;
        thread.start();
        handler = new Handler(thread.getLooper());
    }

    void queue(@NotNull Runnable event) {
        handler.post(event);
    }

    /** Draws into a surface, or one of another size. */
    void enter(@NotNull SurfaceTexture newSurface, int newWidth, int newHeight) {
        queue(
                () -> {
                    leaveSurface();
                    surface = newSurface;
                    width = newWidth;
                    height = newHeight;
                    schedule();
                });
    }

    /**
     * Lets go of the surface. A thread that waits in the surface for a frame of the screen lets go
     * when the surface is released, which happens next.
     */
    void leave() {
        await(this::leaveSurface);
    }

    void pause() {
        await(
                () -> {
                    paused = true;
                    free();
                });
    }

    void resume() {
        queue(
                () -> {
                    paused = false;
                    engine.wake();
                    schedule();
                });
    }

    void end() {
        pause(); // No frame comes before the thread ends.
        thread.quitSafely();
    }

    @Override
    public void doFrame(long frameTimeNanos) {
        scheduled = false;
        if (!paused && surface != null && enterSurface()) {
            engine.draw(width, height);
            heed(egl.swap());
            schedule();
        }
    }

    private void schedule() {
        if (!scheduled && !paused && surface != null) {
            scheduled = true;
            Choreographer.getInstance().postFrameCallback(this);
        }
    }

    private boolean enterSurface() {
        try {
            if (egl == null) {
                egl = new EglContext();
                engine.contextLost();
            }
        } catch (RendererException e) {
            surface = null;
            engine.listener().onError(e);
            return false;
        }
        if (!egl.hasWindow() && !egl.enter(surface)) {
            surface = null;
        }
        return surface != null;
    }

    private void heed(EglContext.Swap result) {
        switch (result) {
            case WINDOW_GONE: // Until there is another.
                leaveSurface();
                break;
            case CONTEXT_LOST:
                engine.contextLost();
                closeContext();
                break;
            default:
                break;
        }
    }

    private void leaveSurface() {
        surface = null;
        if (egl != null) {
            egl.leave();
        }
    }

    private void free() {
        engine.suspend();
        closeContext();
    }

    private void closeContext() {
        if (egl != null) {
            egl.close();
            egl = null;
        }
    }

    private void await(Runnable event) {
        CountDownLatch done = new CountDownLatch(1);
        queue(
                () -> {
                    event.run();
                    done.countDown();
                });
        try {
            done.await(PATIENCE_MS, TimeUnit.MILLISECONDS);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
    }
}
