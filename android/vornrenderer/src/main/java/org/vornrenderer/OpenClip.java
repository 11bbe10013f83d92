package org.vornrenderer;

import java.io.IOException;
import org.jetbrains.annotations.NotNull;

/** A clip while it is open: its units, their decoder, and the picture. Runs on the GL thread. */
final class OpenClip {
    private static final int FULL_TURN = 360;

    private final ClipFeed feed;
    private final Picture picture;

    private OpenClip(ClipFeed feed, Picture picture) {
        this.feed = feed;
        this.picture = picture;
    }

    /**
     * Opens a clip, and continues with the key frame before a time.
     *
     * @param rotation clockwise in degrees, beyond what the clip says
     * @throws IOException if it cannot be read
     * @throws RuntimeException if it cannot be played; nothing is left behind
     */
    @NotNull
    static OpenClip open(@NotNull ClipFeed.Source source, long timeUs, int rotation)
            throws IOException {
        ClipFeed feed = new ClipFeed(source);
        try {
            int turn = (feed.rotation() + rotation) % FULL_TURN;
            Picture picture = Picture.open(VideoSource.H264, feed.width(), feed.height(), turn);
            feed.seek(timeUs);
            return new OpenClip(feed, picture);
        } catch (RuntimeException e) {
            feed.close();
            throw e;
        }
    }

    /** Whether the clip was opened with this rotation. */
    boolean isTurnedBy(int rotation) {
        return picture.rotation() == (feed.rotation() + rotation) % FULL_TURN;
    }

    long durationUs() {
        return feed.durationUs();
    }

    @NotNull
    Picture picture() {
        return picture;
    }

    /** Continues with the key frame before a time. */
    void seek(long timeUs) {
        picture.renderer().flush();
        feed.seek(timeUs);
    }

    /** Passes on the units that are due, and draws. Returns whether there is another picture. */
    boolean draw(@NotNull Pace pace, @NotNull Look look) {
        pace.feed(feed, picture.renderer());
        return picture.draw(look);
    }

    long pictureTimeUs() {
        return picture.renderer().pictureTimeUs();
    }

    /** Whether the last picture was drawn. */
    boolean ended() {
        return feed.ended() && picture.renderer().decoderState().endOfStream;
    }

    void close(boolean contextLost) {
        picture.close(contextLost);
        feed.close();
    }
}
