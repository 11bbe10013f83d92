package org.vornrenderer;

import java.io.IOException;
import java.util.function.LongSupplier;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** A clip in time. Runs on the GL thread, but for the queries of volatile values. */
final class ClipPlayer implements PictureSource {
    /** A surface gives the last picture out some milliseconds after the decoder. */
    private static final int DRAWS_FOR_LAST = 2;

    private final VideoEngine.Listener listener;
    private final Pace pace = new Pace();
    private ClipFeed.Source source;
    private boolean finished;
    private boolean looping;

    /** Null while none is open. */
    private OpenClip clip;

    private boolean hasPicture;

    /** Without a new picture since the decoder gave out the last. */
    private int drawsAtEnd;

    /** Pictures before this time only lead there. */
    private long soughtUs;

    private volatile boolean playing;
    private volatile long positionUs;
    private volatile long durationUs;

    ClipPlayer(@NotNull VideoEngine.Listener listener) {
        this.listener = listener;
    }

    /** Plays from the start. The next draw opens the clip. */
    void play(@NotNull ClipFeed.Source newSource) {
        close();
        source = newSource;
        finished = false;
        go(0);
        setPlaying(true);
    }

    void pause() {
        setPlaying(false);
    }

    /** Continues after pause, or from the start after the end. */
    void resume() {
        if (source == null) {
            return;
        }
        if (finished) {
            seekTo(0);
        }
        setPlaying(true);
    }

    private void setPlaying(boolean play) {
        boolean changes = play != playing;
        playing = play;
        pace.run(play);
        if (changes) {
            listener.onPlaying(play);
        }
    }

    void seekTo(long timeUs) {
        finished = false;
        go(limit(timeUs));
        if (clip != null) {
            clip.seek(positionUs);
        }
    }

    private long limit(long timeUs) {
        return Math.max(0, durationUs > 0 ? Math.min(timeUs, durationUs) : timeUs);
    }

    private void go(long timeUs) {
        drawsAtEnd = 0;
        soughtUs = timeUs;
        positionUs = timeUs;
        pace.await(timeUs);
    }

    void setLooping(boolean loop) {
        looping = loop;
    }

    void setClock(@Nullable LongSupplier newClock) {
        pace.clock.use(newClock);
    }

    boolean isPlaying() {
        return playing;
    }

    long durationUs() {
        return durationUs;
    }

    long positionUs() {
        return positionUs;
    }

    @Override
    public long timeUs() {
        return clip.pictureTimeUs();
    }

    @Override
    @Nullable
    public Picture picture() {
        return hasPicture ? clip.picture() : null;
    }

    @Override
    public boolean draw(@NotNull Look look) throws IOException {
        if (clip != null && !clip.isTurnedBy(look.rotation)) {
            free(false);
        }
        if (clip == null && source != null) {
            clip = OpenClip.open(source, positionUs, look.rotation);
            durationUs = clip.durationUs();
            go(limit(positionUs));
        }
        return clip != null && drawPicture(look);
    }

    private boolean drawPicture(Look look) {
        boolean ended = clip.ended(); // Asked before: the last picture may come during the draw.
        boolean isNew = clip.draw(pace, look);
        if (isNew) {
            drawsAtEnd = 0;
            hasPicture = true;
            pace.drawn();
            positionUs = Math.max(soughtUs, clip.pictureTimeUs());
        } else if (playing && ended && ++drawsAtEnd == DRAWS_FOR_LAST) {
            end();
        }
        return isNew;
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

    @Override
    public void free(boolean contextLost) {
        if (clip != null) {
            clip.close(contextLost);
            clip = null;
        }
        hasPicture = false;
        go(positionUs);
    }

    @Override
    public void close() {
        free(false);
        source = null;
        setPlaying(false);
        durationUs = 0;
    }
}
