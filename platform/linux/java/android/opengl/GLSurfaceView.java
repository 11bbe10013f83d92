package android.opengl;

import android.content.Context;
import android.util.AttributeSet;
import android.view.SurfaceView;
import javax.microedition.khronos.egl.EGLConfig;
import javax.microedition.khronos.opengles.GL10;

/**
 * A view with a thread that draws 60 times a second, into a surface in memory. There is a surface
 * once the view was laid out. Another size gives another surface in the same context. A pause ends the
 * context.
 */
public class GLSurfaceView extends SurfaceView {
    /** What the thread calls, with the context current. */
    public interface Renderer {
        void onSurfaceCreated(GL10 gl, EGLConfig config);

        void onSurfaceChanged(GL10 gl, int width, int height);

        void onDrawFrame(GL10 gl);
    }

    private Renderer renderer;
    private GlThread thread;
    private boolean ended;

    public GLSurfaceView(Context context) {
        super(context);
    }

    public GLSurfaceView(Context context, AttributeSet attrs) {
        super(context, attrs);
    }

    /** The context has version 3 in any case. */
    public void setEGLContextClientVersion(int version) {}

    public void setRenderer(Renderer newRenderer) {
        renderer = newRenderer;
        start();
    }

    private void start() {
        thread = new GlThread(renderer);
        thread.start();
    }

    public void queueEvent(Runnable r) {
        thread.queue(r);
    }

    @Override
    public void layout(int l, int t, int r, int b) {
        super.layout(l, t, r, b);
        thread.setSize(r - l, b - t);
    }

    /** Returns when the thread has run the events queued before, and ended its context. */
    public void onPause() {
        thread.setPaused(true);
    }

    public void onResume() {
        thread.setPaused(false);
    }

    /** As when a device takes the context away: the renderer hears of it when there is another. */
    void loseContext() {
        thread.queue(thread::endContext);
    }

    @Override
    protected void onAttachedToWindow() {
        super.onAttachedToWindow();
        if (ended) {
            start();
        }
    }

    /** Ends the thread, as when the view leaves its window. */
    @Override
    protected void onDetachedFromWindow() {
        thread.end();
        ended = true;
    }
}
