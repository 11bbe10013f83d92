package org.vornrenderer;

import android.content.Context;
import android.graphics.SurfaceTexture;
import android.os.Bundle;
import android.util.AttributeSet;
import android.view.KeyEvent;
import android.view.MotionEvent;
import android.view.TextureView;
import android.view.accessibility.AccessibilityNodeInfo;
import java.util.ArrayDeque;
import java.util.Queue;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * Plays a clip like {@link VornVideoView}, in a view that moves, scrolls, fades and turns with its
 * layout. It needs a window with hardware acceleration, which is the default.
 *
 * <p>Events that are queued while the view is in no window run when it is in one again. Removed from
 * its window, it frees the decoder; when it is back, the clip continues at the same picture. Set no
 * surface texture listener: the view has one.
 */
public class VornTextureView extends TextureView implements VideoPlayer {
    private final VideoEngine engine = new VideoEngine(new ViewListeners(this));
    private final ViewInput input = new ViewInput(this);
    private final Queue<Runnable> waiting = new ArrayDeque<>();

    /** Null while the view is in no window. */
    @Nullable private TextureGlThread thread;

    private boolean paused;

    /**
     * A view in code.
     *
     * @param context the activity
     */
    public VornTextureView(@NotNull Context context) {
        this(context, null);
    }

    /**
     * A view in a layout.
     *
     * @param context the activity
     * @param attributes of the layout: vornSource, vornScaleMode, vornBorderColor, vornMirrored,
     *     vornLooping, vornGestures
     */
    public VornTextureView(@NotNull Context context, @Nullable AttributeSet attributes) {
        super(context, attributes);
        setSurfaceTextureListener(new Surfaces());
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
    public void queueEvent(@NotNull Runnable event) {
        synchronized (waiting) {
            if (thread == null) {
                waiting.add(event);
            } else {
                thread.queue(event);
            }
        }
    }

    @Override
    public void setGestures(boolean on) {
        input.turn(on);
    }

    @Override
    public void onPause() {
        paused = true;
        if (thread != null) {
            thread.pause();
        }
    }

    @Override
    public void onResume() {
        paused = false;
        if (thread != null) {
            thread.resume();
        }
    }

    @Override
    protected void onAttachedToWindow() {
        super.onAttachedToWindow();
        synchronized (waiting) {
            thread = new TextureGlThread(engine);
            if (paused) {
                thread.pause();
            } else {
                thread.resume();
            }
            while (!waiting.isEmpty()) {
                thread.queue(waiting.remove());
            }
        }
    }

    @Override
    protected void onDetachedFromWindow() {
        TextureGlThread ending = thread;
        synchronized (waiting) {
            thread = null;
        }
        ending.end();
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

    /** Passes the surface on to the GL thread. */
    private final class Surfaces implements SurfaceTextureListener {
        @Override
        public void onSurfaceTextureAvailable(SurfaceTexture surface, int width, int height) {
            if (thread != null) {
                thread.enter(surface, width, height);
            }
        }

        @Override
        public void onSurfaceTextureSizeChanged(SurfaceTexture surface, int width, int height) {
            onSurfaceTextureAvailable(surface, width, height);
        }

        @Override
        public boolean onSurfaceTextureDestroyed(SurfaceTexture surface) {
            if (thread != null) {
                thread.leave();
            }
            return true;
        }

        @Override
        public void onSurfaceTextureUpdated(SurfaceTexture surface) {}
    }
}
