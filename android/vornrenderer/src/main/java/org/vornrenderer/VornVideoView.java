package org.vornrenderer;

import android.content.Context;
import android.graphics.Bitmap;
import android.net.Uri;
import android.opengl.GLSurfaceView;
import android.util.AttributeSet;
import android.view.KeyEvent;
import android.view.MotionEvent;
import java.io.FileDescriptor;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import java.util.function.Consumer;
import java.util.function.LongConsumer;
import java.util.function.LongSupplier;
import javax.microedition.khronos.egl.EGLConfig;
import javax.microedition.khronos.opengles.GL10;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * Plays a clip. Pass the activity's onResume and onPause on to the view.
 *
 * <p>The user drags, pinches and taps twice to reset. With the focus on the view, the space bar pauses
 * and resumes, and the arrows go 5 s back and forth.
 *
 * <p>All methods belong to the UI thread. They take effect with the next frame. The decoder is freed
 * in onPause; after onResume the clip continues at the same picture. Sound is the application's
 * affair: {@link #setClock} holds the pictures to it.
 */
public class VornVideoView extends GLSurfaceView {
    private static final long PATIENCE_MS = 1000;
    private static final long STEP_US = 5_000_000;

    private final ViewListeners listeners = new ViewListeners(this);
    private final VideoEngine engine = new VideoEngine(listeners);
    private final ViewGestures gestures = new ViewGestures(getContext(), new Moves());
    private boolean gesturesOn = true;

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
     * @param attributes of the layout
     */
    public VornVideoView(@NotNull Context context, @Nullable AttributeSet attributes) {
        super(context, attributes);
        setEGLContextClientVersion(3);
        setRenderer(new Frames());
        setFocusable(true);
    }

    /**
     * Plays a clip from its start.
     *
     * @param clip the address of a file with H.264 video
     */
    public void play(@NotNull Uri clip) {
        Context context = getContext();
        queueEvent(() -> engine.play(context, clip));
    }

    /**
     * Plays a clip from its start.
     *
     * @param file stays open until the view plays another clip or is gone
     * @param offset of the clip in the file, in bytes
     * @param length of the clip, in bytes
     */
    public void play(@NotNull FileDescriptor file, long offset, long length) {
        queueEvent(() -> engine.play(file, offset, length));
    }

    /** Stops the time. The picture stays. */
    public void pause() {
        queueEvent(engine::pause);
    }

    /** Continues after {@link #pause}, or from the start after the end. */
    public void resume() {
        queueEvent(engine::resume);
    }

    /** Frees the decoder and forgets the clip. */
    public void stop() {
        queueEvent(engine::close);
    }

    /**
     * Continues at another time.
     *
     * @param timeUs time in the clip, in microseconds
     */
    public void seekTo(long timeUs) {
        queueEvent(() -> engine.seekTo(timeUs));
    }

    /**
     * Sets whether the clip starts again at its end.
     *
     * @param loop false at the start
     */
    public void setLooping(boolean loop) {
        queueEvent(() -> engine.setLooping(loop));
    }

    /**
     * Replaces the clock, for example with that of a player of the clip's sound.
     *
     * @param clock gives the time in the clip in microseconds, on the GL thread; null for the
     *     system's clock
     */
    public void setClock(@Nullable LongSupplier clock) {
        queueEvent(() -> engine.setClock(clock));
    }

    /**
     * Sets how the picture fills the view.
     *
     * @param mode {@link ScaleMode#FIT} at the start
     */
    public void setScaleMode(@NotNull ScaleMode mode) {
        queueEvent(() -> engine.setScaleMode(mode));
    }

    /**
     * Sets the color around the picture.
     *
     * @param color as in android.graphics.Color, without alpha; black at the start
     */
    public void setBorderColor(int color) {
        queueEvent(() -> engine.setBorderColor(color));
    }

    /**
     * Swaps left and right of the picture.
     *
     * @param mirror false at the start
     */
    public void setMirrored(boolean mirror) {
        queueEvent(() -> engine.setMirrored(mirror));
    }

    /**
     * Whether the view answers to touch and keys.
     *
     * @param on true at the start
     */
    public void setGestures(boolean on) {
        gesturesOn = on;
    }

    /**
     * Whether the time runs.
     *
     * @return false without a clip, after pause and at the end
     */
    public boolean isPlaying() {
        return engine.isPlaying();
    }

    /**
     * The time of the picture.
     *
     * @return microseconds; after a seek the time that was sought
     */
    public long positionUs() {
        return engine.positionUs();
    }

    /**
     * The length of the clip.
     *
     * @return microseconds; 0 until known
     */
    public long durationUs() {
        return engine.durationUs();
    }

    /**
     * Takes the picture, without borders.
     *
     * @param taker gets the picture on the UI thread, or null before the first picture
     */
    public void capture(@NotNull Consumer<Bitmap> taker) {
        queueEvent(
                () -> {
                    Bitmap picture = engine.capture();
                    post(() -> taker.accept(picture));
                });
    }

    /**
     * Is told why a clip cannot be played, or not any further.
     *
     * @param listener called on the UI thread with a {@link RendererException} or an exception of
     *     the platform; null for none
     */
    public void setErrorListener(@Nullable Consumer<Exception> listener) {
        listeners.error = listener;
    }

    /**
     * Is told when a clip shows its first picture.
     *
     * @param listener called on the UI thread; null for none
     */
    public void setFirstFrameListener(@Nullable Runnable listener) {
        listeners.firstFrame = listener;
    }

    /**
     * Is told when the last picture of a clip that does not loop was shown.
     *
     * @param listener called on the UI thread; null for none
     */
    public void setEndListener(@Nullable Runnable listener) {
        listeners.end = listener;
    }

    /**
     * Is told the time of each picture that is shown.
     *
     * @param listener called on the GL thread with microseconds; null for none
     */
    public void setFrameListener(@Nullable LongConsumer listener) {
        listeners.frame = listener;
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
        if (!gesturesOn) {
            return super.onTouchEvent(event);
        }
        gestures.onTouch(event);
        return true;
    }

    @Override
    public boolean onKeyDown(int keyCode, @NotNull KeyEvent event) {
        if (gesturesOn) {
            switch (keyCode) {
                case KeyEvent.KEYCODE_SPACE:
                case KeyEvent.KEYCODE_MEDIA_PLAY_PAUSE:
                    queueEvent(engine.isPlaying() ? engine::pause : engine::resume);
                    return true;
                case KeyEvent.KEYCODE_DPAD_LEFT:
                    seekTo(positionUs() - STEP_US);
                    return true;
                case KeyEvent.KEYCODE_DPAD_RIGHT:
                    seekTo(positionUs() + STEP_US);
                    return true;
                default:
                    break;
            }
        }
        return super.onKeyDown(keyCode, event);
    }

    /** Passes gestures on, to the GL thread. */
    private final class Moves implements ViewGestures.Target {
        @Override
        public void drag(float right, float down) {
            queueEvent(() -> engine.drag(right, down));
        }

        @Override
        public void zoomBy(float factor) {
            queueEvent(() -> engine.zoomBy(factor));
        }

        @Override
        public void reset() {
            queueEvent(engine::resetView);
        }
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
