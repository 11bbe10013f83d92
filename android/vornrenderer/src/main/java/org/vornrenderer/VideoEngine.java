package org.vornrenderer;

import android.content.Context;
import android.graphics.Bitmap;
import android.net.Uri;
import java.io.FileDescriptor;
import java.io.IOException;
import java.util.Objects;
import java.util.function.LongSupplier;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * Plays a clip into the framebuffer of a GL thread. {@link VornVideoView} is this in a view. Use the
 * engine on a GL thread of the application.
 *
 * <p>All methods but the queries of position, duration and {@link #isPlaying} belong to the GL
 * thread. A clip is an H.264 video in a file that MediaExtractor reads. It is turned as the file
 * says, and held to the clip's time: what is late is skipped.
 */
public final class VideoEngine {
    /** What happens in an engine. All methods are called on the GL thread. */
    public interface Listener {
        /** A clip shows its first picture. */
        default void onStart() {}

        /**
         * Another picture was drawn into the framebuffer.
         *
         * @param timeUs its time in the clip, in microseconds
         */
        default void onFrame(long timeUs) {}

        /** The last picture of a clip that does not loop was shown. */
        default void onEnd() {}

        /**
         * The clip cannot be played, or not any further. It is closed.
         *
         * @param reason a {@link RendererException}, or an exception of the platform
         */
        default void onError(@NotNull Exception reason) {}
    }

    private final Listener listener;
    private final Pace pace = new Pace();
    private ClipFeed.Source source;
    private boolean started;
    private boolean finished;
    private boolean suspended;
    private boolean looping;
    private boolean mirrored;
    private ScaleMode scaleMode = ScaleMode.FIT;
    private int borderColor;
    private final ViewPosition view = new ViewPosition();

    /** Null while none is open. */
    private OpenClip clip;

    private volatile boolean playing;
    private volatile long positionUs;
    private volatile long durationUs;

    /**
     * An engine without a clip.
     *
     * @param listener is told what happens
     */
    public VideoEngine(@NotNull Listener listener) {
        this.listener = Objects.requireNonNull(listener);
    }

    @NotNull
    Listener listener() {
        return listener;
    }

    /**
     * Plays a clip from its start. It is opened by the next {@link #draw}.
     *
     * @param context to resolve the address
     * @param clip the address
     */
    public void play(@NotNull Context context, @NotNull Uri clip) {
        play(extractor -> extractor.setDataSource(context, clip, null));
    }

    /**
     * Plays a clip from its start. It is opened by the next {@link #draw}.
     *
     * @param file stays open until the engine is closed or plays another clip
     * @param offset of the clip in the file, in bytes
     * @param length of the clip, in bytes
     */
    public void play(@NotNull FileDescriptor file, long offset, long length) {
        Objects.requireNonNull(file);
        play(extractor -> extractor.setDataSource(file, offset, length));
    }

    private void play(ClipFeed.Source newSource) {
        close();
        source = newSource;
        started = false;
        finished = false;
        positionUs = 0;
        pace.await(0);
        setPlaying(true);
    }

    /** Stops the time. The picture stays. */
    public void pause() {
        setPlaying(false);
    }

    /** Continues after {@link #pause}, or from the start after the end. */
    public void resume() {
        if (source == null) {
            return;
        }
        if (finished) {
            seekTo(0);
        }
        setPlaying(source != null); // Seeking may have failed.
    }

    private void setPlaying(boolean play) {
        playing = play;
        pace.run(play);
    }

    /**
     * Continues at another time. Shows the pictures from the key frame before that time in quick
     * succession.
     *
     * @param timeUs time in the clip, in microseconds
     */
    public void seekTo(long timeUs) {
        positionUs = Math.max(0, timeUs);
        finished = false;
        pace.await(positionUs);
        if (clip == null) {
            return;
        }
        try {
            clip.seek(positionUs);
        } catch (RuntimeException e) {
            fail(e);
        }
    }

    /**
     * Sets whether the clip starts again at its end.
     *
     * @param loop false at the start
     */
    public void setLooping(boolean loop) {
        looping = loop;
    }

    /**
     * Replaces the clock, for example with that of a player of the clip's sound.
     *
     * @param newClock gives the time in the clip in microseconds, on the GL thread; null for the
     *     system's clock
     */
    public void setClock(@Nullable LongSupplier newClock) {
        pace.clock.use(newClock);
    }

    /**
     * Sets how the picture fills the screen.
     *
     * @param mode {@link ScaleMode#FIT} at the start
     */
    public void setScaleMode(@NotNull ScaleMode mode) {
        scaleMode = Objects.requireNonNull(mode);
    }

    /**
     * Sets the color around the picture.
     *
     * @param color as in android.graphics.Color, without alpha; black at the start
     */
    public void setBorderColor(int color) {
        borderColor = color;
    }

    /**
     * Swaps left and right of the picture.
     *
     * @param mirror false at the start
     */
    public void setMirrored(boolean mirror) {
        mirrored = mirror;
    }

    /**
     * Moves the picture.
     *
     * @param right in pixels of the screen
     * @param down in pixels of the screen
     */
    public void drag(float right, float down) {
        if (clip != null) {
            view.drag(right / clip.screen().shownWidth(), down / clip.screen().shownHeight());
        }
    }

    /**
     * Zooms the picture in or out, around its middle.
     *
     * @param factor more than 1 to zoom in
     */
    public void zoomBy(float factor) {
        view.zoomBy(factor);
    }

    /** Shows the picture unmoved and as large as the screen allows. */
    public void resetView() {
        view.reset();
    }

    /**
     * Whether the time runs. May be called on any thread.
     *
     * @return false without a clip, after pause and at the end
     */
    public boolean isPlaying() {
        return playing;
    }

    /**
     * The time of the picture. May be called on any thread.
     *
     * @return microseconds; after a seek the time that was sought
     */
    public long positionUs() {
        return positionUs;
    }

    /**
     * The length of the clip. May be called on any thread.
     *
     * @return microseconds; 0 until known
     */
    public long durationUs() {
        return durationUs;
    }

    /**
     * Draws the picture that is due, once per displayed frame, into the framebuffer 0.
     *
     * @param width of the screen in pixels
     * @param height of the screen in pixels
     */
    public void draw(int width, int height) {
        boolean isNew = false;
        try {
            if (clip == null && source != null && !suspended) {
                open();
            }
            if (clip != null) {
                isNew = drawPicture();
            }
        } catch (IOException | RuntimeException e) {
            fail(e);
        }
        if (clip == null) {
            Screen.clear(borderColor);
        } else {
            clip.screen().show(width, height, scaleMode, borderColor);
        }
        if (isNew) {
            report();
        }
    }

    /**
     * The picture as it was drawn last, without borders.
     *
     * @return null before the first picture
     */
    @Nullable
    public Bitmap capture() {
        return clip == null || pace.isAwaiting() ? null : clip.capture();
    }

    /** Frees everything but what is needed to continue with {@link #wake}. */
    public void suspend() {
        free();
        suspended = true;
    }

    /** Continues after {@link #suspend}: the next draw opens the clip again. */
    public void wake() {
        suspended = false;
    }

    /** After the GL context was lost with all its objects: the next draw opens the clip again. */
    public void contextLost() {
        if (clip != null) {
            clip.closeAfterContextLoss();
        }
        forget();
    }

    /** Frees everything and forgets the clip. */
    public void close() {
        free();
        source = null;
        setPlaying(false);
        durationUs = 0;
    }

    private void free() {
        if (clip != null) {
            clip.close();
        }
        forget();
    }

    private void forget() {
        clip = null;
        pace.await(positionUs);
    }

    private void fail(Exception reason) {
        close();
        listener.onError(reason);
    }

    private void open() throws IOException {
        clip = OpenClip.open(source, positionUs);
        durationUs = clip.durationUs();
    }

    /** Returns whether the picture is another one than before. */
    private boolean drawPicture() {
        boolean isNew = clip.draw(pace, mirrored, view);
        if (isNew) {
            pace.drawn();
            positionUs = clip.pictureTimeUs();
        } else if (playing && clip.ended()) {
            end();
        }
        return isNew;
    }

    private void report() {
        if (!started) {
            started = true;
            listener.onStart();
        }
        listener.onFrame(positionUs);
    }

    private void end() {
        if (looping) {
            seekTo(0);
            return;
        }
        finished = true;
        pause();
        listener.onEnd();
    }
}
