package org.vornrenderer;

import android.app.Activity;
import android.content.Context;
import android.graphics.Bitmap;
import android.net.Uri;
import java.io.FileDescriptor;
import java.util.Objects;
import java.util.function.Consumer;
import java.util.function.LongConsumer;
import java.util.function.LongSupplier;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * What both views do. {@link VornVideoView} has a window behind that of the activity, which costs the
 * device least. {@link VornTextureView} moves, scrolls and fades like any other view.
 *
 * <p>All methods belong to the UI thread. They take effect with the next frame. Applications implement
 * no player.
 */
public interface VideoPlayer extends PictureView {
    /**
     * The context of the view.
     *
     * @return the activity
     */
    @NotNull
    Context getContext();

    /**
     * Runs an action on the UI thread.
     *
     * @param action runs later
     * @return false if it will not run
     */
    boolean post(@NotNull Runnable action);

    /** Continues at the same picture. Belongs into the activity's onResume, unless it is followed. */
    void onResume();

    /** Frees the decoder. Belongs into the activity's onPause, unless it is followed. */
    void onPause();

    /**
     * Pauses and resumes with an activity until it is destroyed.
     *
     * @param activity that shows the view, in its onCreate
     */
    default void follow(@NotNull Activity activity) {
        new ActivityWatch(activity, this).start();
    }

    /**
     * Whether the view answers to touch, keys and the actions of screen readers.
     *
     * @param on true at the start
     */
    void setGestures(boolean on);

    /**
     * Moves the picture.
     *
     * @param right in pixels of the view
     * @param down in pixels of the view
     * @throws IllegalArgumentException if a value is not finite
     */
    default void drag(float right, float down) {
        Check.place(right, down);
        queueEvent(() -> engine().drag(right, down));
    }

    /**
     * Zooms the picture in or out, around its middle.
     *
     * @param factor more than 1 to zoom in
     * @throws IllegalArgumentException if it is not positive or not finite
     */
    default void zoomBy(float factor) {
        Check.factor(factor);
        queueEvent(() -> engine().zoomBy(factor));
    }

    /** Shows the picture unmoved and as large as the view allows. */
    default void resetView() {
        queueEvent(engine()::resetView);
    }

    /**
     * Plays a clip from its start.
     *
     * @param clip the address of a file with H.264 video
     */
    default void play(@NotNull Uri clip) {
        Objects.requireNonNull(clip);
        Context context = getContext();
        queueEvent(() -> engine().play(context, clip));
    }

    /**
     * Plays a clip from its start.
     *
     * @param file stays open until the view shows something else or is gone
     * @param offset of the clip in the file, in bytes
     * @param length of the clip, in bytes
     */
    default void play(@NotNull FileDescriptor file, long offset, long length) {
        Objects.requireNonNull(file);
        queueEvent(() -> engine().play(file, offset, length));
    }

    /** Stops the time. The picture stays. */
    default void pause() {
        queueEvent(engine()::pause);
    }

    /** Continues after {@link #pause}, or from the start after the end. */
    default void resume() {
        queueEvent(engine()::resume);
    }

    /** Frees the decoder and shows nothing. */
    default void stop() {
        queueEvent(engine()::close);
    }

    /**
     * Continues at another time.
     *
     * @param timeUs time in the clip, in microseconds
     */
    default void seekTo(long timeUs) {
        queueEvent(() -> engine().seekTo(timeUs));
    }

    /**
     * Sets whether the clip starts again at its end.
     *
     * @param loop false at the start
     */
    default void setLooping(boolean loop) {
        queueEvent(() -> engine().setLooping(loop));
    }

    /**
     * Replaces the clock, for example with that of a player of the clip's sound.
     *
     * @param clock gives the time in the clip in microseconds, on the GL thread; null for the
     *     system's clock
     */
    default void setClock(@Nullable LongSupplier clock) {
        queueEvent(() -> engine().setClock(clock));
    }

    /**
     * Sets how the picture fills the view.
     *
     * @param mode {@link ScaleMode#FIT} at the start
     */
    default void setScaleMode(@NotNull ScaleMode mode) {
        Objects.requireNonNull(mode);
        queueEvent(() -> engine().setScaleMode(mode));
    }

    /**
     * Sets the color around the picture, and where a mask hides it.
     *
     * @param color as in android.graphics.Color, without alpha; black at the start
     */
    default void setBorderColor(int color) {
        queueEvent(() -> engine().setBorderColor(color));
    }

    /**
     * Swaps left and right of the picture.
     *
     * @param mirror false at the start
     */
    default void setMirrored(boolean mirror) {
        queueEvent(() -> engine().setMirrored(mirror));
    }

    /**
     * Whether the time runs.
     *
     * @return false without a clip, after pause and at the end
     */
    default boolean isPlaying() {
        return engine().isPlaying();
    }

    /**
     * The time of the picture.
     *
     * @return microseconds; after a seek the time that was sought, until a later picture shows
     */
    default long positionUs() {
        return engine().positionUs();
    }

    /**
     * The length of the clip.
     *
     * @return microseconds; 0 until known
     */
    default long durationUs() {
        return engine().durationUs();
    }

    /**
     * Takes the picture with its mask, without borders and stickers.
     *
     * @param taker gets the picture on the UI thread, or null before the first picture
     */
    default void capture(@NotNull Consumer<Bitmap> taker) {
        Objects.requireNonNull(taker);
        queueEvent(
                () -> {
                    Bitmap picture = engine().capture();
                    post(() -> taker.accept(picture));
                });
    }

    /**
     * Takes what the view shows: the picture with mask, stickers and borders.
     *
     * @param taker gets it on the UI thread, or null before the view was drawn
     */
    default void captureScreen(@NotNull Consumer<Bitmap> taker) {
        Objects.requireNonNull(taker);
        queueEvent(
                () -> {
                    Bitmap screen = engine().captureScreen();
                    post(() -> taker.accept(screen));
                });
    }

    /**
     * Is told why a clip or picture cannot be shown, or not any further, or why a mask or stickers
     * cannot.
     *
     * @param listener called on the UI thread with a {@link RendererException} or an exception of
     *     the platform; null for none
     */
    default void setErrorListener(@Nullable Consumer<Exception> listener) {
        ViewListeners.of(this).error = listener;
    }

    /**
     * Is told whether the time runs, when that changes.
     *
     * @param listener called on the UI thread; null for none
     */
    default void setPlayingListener(@Nullable Consumer<Boolean> listener) {
        ViewListeners.of(this).playing = listener;
    }

    /**
     * Is told when a clip, or another kind of source than before, shows its first picture.
     *
     * @param listener called on the UI thread; null for none
     */
    default void setFirstFrameListener(@Nullable Runnable listener) {
        ViewListeners.of(this).firstFrame = listener;
    }

    /**
     * Is told when the last picture of a clip that does not loop was shown.
     *
     * @param listener called on the UI thread; null for none
     */
    default void setEndListener(@Nullable Runnable listener) {
        ViewListeners.of(this).end = listener;
    }

    /**
     * Is told the time of each picture that is shown.
     *
     * @param listener called on the GL thread with microseconds, those of the time stamp of
     *     images and surface textures, 0 for bitmaps and pixels; null for none
     */
    default void setFrameListener(@Nullable LongConsumer listener) {
        ViewListeners.of(this).frame = listener;
    }
}
