package org.vornrenderer;

import android.content.Context;
import android.opengl.GLSurfaceView;
import android.os.Bundle;
import android.util.AttributeSet;
import android.view.KeyEvent;
import android.view.MotionEvent;
import android.view.accessibility.AccessibilityNodeInfo;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import javax.microedition.khronos.egl.EGLConfig;
import javax.microedition.khronos.opengles.GL10;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * Plays a clip, or shows other pictures. {@link #follow} passes the activity's pauses on to the view.
 *
 * <p>The user drags, pinches and taps twice to reset. With the focus on the view, the space bar pauses
 * and resumes, the left and right arrows go 5 s back and forth, plus and minus zoom, and 0 resets.
 *
 * <p>The decoder is freed in onPause; after onResume the clip continues at the same picture. Sound is
 * the application's affair: {@link #setClock} holds the pictures to it.
 */
public class VornVideoView extends GLSurfaceView implements VideoPlayer {
    private static final long PATIENCE_MS = 1000;

    private final VideoEngine engine = new VideoEngine(new ViewListeners(this));
    private final ViewInput input = new ViewInput(this);

    /**
     * A view in code.
     *
     * @param context the activity
     */
    public VornVideoView(@NotNull Context context) {
        this(context, null);
    }

    /**
     * A view in a layout.
     *
     * @param context the activity
     * @param attributes of the layout: vornSource, vornScaleMode, vornBorderColor, vornMirrored,
     *     vornLooping, vornGestures
     */
    public VornVideoView(@NotNull Context context, @Nullable AttributeSet attributes) {
        super(context, attributes);
        setEGLContextClientVersion(3);
        setRenderer(new Frames());
        ViewInput.prepare(this);
        if (attributes != null) {
            ViewAttributes.apply(this, attributes);
        }
    }

    @Override
    @NotNull
    public VideoEngine engine() {
        return engine;
    }

    @Override
    public void setGestures(boolean on) {
        input.turn(on);
    }

    @Override
    public void onPause() {
        queueEvent(engine::suspend); // The GL thread runs it before it pauses.
        super.onPause();
    }

    @Override
    public void onResume() {
        super.onResume();
        queueEvent(engine::wake);
    }

    @Override
    protected void onAttachedToWindow() {
        super.onAttachedToWindow();
        queueEvent(engine::wake);
    }

    /** Without a pause before, as for a view that is removed. The GL thread ends next. */
    @Override
    protected void onDetachedFromWindow() {
        CountDownLatch freed = new CountDownLatch(1);
        queueEvent(
                () -> {
                    engine.suspend();
                    freed.countDown();
                });
        try {
            freed.await(PATIENCE_MS, TimeUnit.MILLISECONDS);
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
        }
        super.onDetachedFromWindow();
    }

    @Override
    public boolean onTouchEvent(@NotNull MotionEvent event) {
        return input.touch(event) || super.onTouchEvent(event);
    }

    @Override
    public boolean onKeyDown(int keyCode, @NotNull KeyEvent event) {
        return input.press(keyCode) || super.onKeyDown(keyCode, event);
    }

    @Override
    public void onInitializeAccessibilityNodeInfo(@NotNull AccessibilityNodeInfo info) {
        super.onInitializeAccessibilityNodeInfo(info);
        input.describe(info);
    }

    @Override
    public boolean performAccessibilityAction(int action, @Nullable Bundle arguments) {
        return input.perform(action) || super.performAccessibilityAction(action, arguments);
    }

    /** What the GL thread calls. */
    private final class Frames implements Renderer {
        private int width;
        private int height;

        @Override
        public void onSurfaceCreated(GL10 gl, EGLConfig config) {
            engine.contextLost();
        }

        @Override
        public void onSurfaceChanged(GL10 gl, int newWidth, int newHeight) {
            width = newWidth;
            height = newHeight;
        }

        @Override
        public void onDrawFrame(GL10 gl) {
            engine.draw(width, height);
        }
    }
}
