package org.vornrenderer;

import java.util.Objects;
import java.util.function.LongSupplier;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** The calls of an engine for the time of a clip. */
abstract class ClipEngine extends LookEngine {
    final ClipPlayer clips;

    ClipEngine(@NotNull VideoEngine.Listener listener) {
        clips = new ClipPlayer(Objects.requireNonNull(listener));
    }

    /** Closes what is shown, and reports why. */
    abstract void fail(@NotNull Exception reason);

    /** Stops the time. The picture stays. */
    public final void pause() {
        clips.pause();
    }

    /** Continues after {@link #pause}, or from the start after the end. */
    public final void resume() {
        attempt(clips::resume);
    }

    /**
     * Continues at another time. Shows the pictures from the key frame before that time in quick
     * succession.
     *
     * @param timeUs time in the clip, in microseconds
     */
    public final void seekTo(long timeUs) {
        attempt(() -> clips.seekTo(timeUs));
    }

    /**
     * Sets whether the clip starts again at its end.
     *
     * @param loop false at the start
     */
    public final void setLooping(boolean loop) {
        clips.setLooping(loop);
    }

    /**
     * Replaces the clock, for example with that of a player of the clip's sound.
     *
     * @param newClock gives the time in the clip in microseconds, on the GL thread; null for the
     *     system's clock
     */
    public final void setClock(@Nullable LongSupplier newClock) {
        clips.setClock(newClock);
    }

    /**
     * Whether the time runs. May be called on any thread.
     *
     * @return false without a clip, after pause and at the end
     */
    public final boolean isPlaying() {
        return clips.isPlaying();
    }

    /**
     * The time of the clip's picture. May be called on any thread.
     *
     * @return microseconds; after a seek the time that was sought, until a later picture shows
     */
    public final long positionUs() {
        return clips.positionUs();
    }

    /**
     * The length of the clip. May be called on any thread.
     *
     * @return microseconds; 0 until known
     */
    public final long durationUs() {
        return clips.durationUs();
    }

    private void attempt(Runnable call) {
        try {
            call.run();
        } catch (RuntimeException e) {
            fail(e);
        }
    }
}
