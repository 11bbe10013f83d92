package org.vornrenderer;

import org.jetbrains.annotations.NotNull;

/**
 * Holds the pictures of a clip to its time. A picture shows when the decoder gives it out, so the
 * pace is that of the units: while the picture is late, the decoder gets more of them.
 */
final class Pace {
    /** Units that are passed on in one draw at most. */
    private static final int CATCH_UP = 4;

    /** Draws in which a decoder can give a picture out before it gets another unit ahead of time. */
    private static final int DRAWS_FOR_PICTURE = 3;

    /** The same for the first picture, which should come soon. */
    private static final int DRAWS_FOR_FIRST = 1;

    /** The same for a picture that stays, and so should be the right one. */
    private static final int DRAWS_FOR_STILL = 6;

    final PlaybackClock clock = new PlaybackClock();
    private boolean running;

    /** No picture has come since the clip was opened or sought in. */
    private boolean awaiting;

    private int drawsSinceFeed;

    /** The time runs from the next picture on. */
    void run(boolean run) {
        running = run;
        clock.run(run && !awaiting);
    }

    /** Stops the clock at a time until there is a picture. */
    void await(long timeUs) {
        awaiting = true;
        clock.run(false);
        clock.set(timeUs);
    }

    boolean isAwaiting() {
        return awaiting;
    }

    /** A new picture was drawn. */
    void drawn() {
        awaiting = false;
        drawsSinceFeed = running ? DRAWS_FOR_PICTURE : 0; // Paused, more may be coming.
        clock.run(running);
    }

    /** Passes on units while the picture is late. Once per draw. */
    void feed(@NotNull ClipFeed feed, @NotNull VideoRenderer renderer) {
        int patience = patience();
        ++drawsSinceFeed;
        for (int i = 0; i < CATCH_UP && isLate(feed, renderer); ++i) {
            boolean early = isEarly(feed.nextTimeUs());
            // The unit before may be all that the picture waits for.
            boolean wait = early && drawsSinceFeed < patience;
            if (wait || !feed.feed(renderer)) {
                return;
            }
            drawsSinceFeed = 0;
            if (early) {
                return;
            }
        }
    }

    private int patience() {
        if (!running) {
            return DRAWS_FOR_STILL;
        }
        return awaiting ? DRAWS_FOR_FIRST : DRAWS_FOR_PICTURE;
    }

    /** The end, which makes the decoder give all out, is early for a picture that stays. */
    private boolean isEarly(long timeUs) {
        return timeUs < 0 ? !running : timeUs > clock.positionUs();
    }

    private boolean isLate(ClipFeed feed, VideoRenderer renderer) {
        return awaiting || renderer.pictureTimeUs() + feed.frameTimeUs() <= clock.positionUs();
    }
}
