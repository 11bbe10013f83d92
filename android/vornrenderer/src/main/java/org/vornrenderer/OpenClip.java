package org.vornrenderer;

import android.graphics.Bitmap;
import java.io.IOException;
import org.jetbrains.annotations.NotNull;

/** A clip while it is open: its units, their decoder, and the picture. Runs on the GL thread. */
final class OpenClip {
    private final ClipFeed feed;
    private final Screen screen;
    private final VideoRenderer renderer;

    private OpenClip(ClipFeed feed, Screen screen, VideoRenderer renderer) {
        this.feed = feed;
        this.screen = screen;
        this.renderer = renderer;
    }

    /**
     * Opens a clip, and continues with the key frame before a time.
     *
     * @throws IOException if it cannot be read
     * @throws RuntimeException if it cannot be played; nothing is left behind
     */
    @NotNull
    static OpenClip open(@NotNull ClipFeed.Source source, long timeUs) throws IOException {
        ClipFeed feed = new ClipFeed(source);
        Screen screen = null;
        try {
            boolean upright = feed.rotation() % 180 == 0;
            int width = upright ? feed.width() : feed.height();
            int height = upright ? feed.height() : feed.width();
            screen = new Screen(width, height);
            VideoRenderer renderer =
                    new VideoRenderer.Builder(VideoSource.H264, feed.width(), feed.height())
                            .outputSize(width, height)
                            .destination(screen.texture())
                            .build();
            screen.attach();
            renderer.setRotation(feed.rotation());
            feed.seek(timeUs);
            return new OpenClip(feed, screen, renderer);
        } catch (RuntimeException e) {
            if (screen != null) {
                screen.close();
            }
            feed.close();
            throw e;
        }
    }

    long durationUs() {
        return feed.durationUs();
    }

    @NotNull
    Screen screen() {
        return screen;
    }

    /** Continues with the key frame before a time. */
    void seek(long timeUs) {
        renderer.flush();
        feed.seek(timeUs);
    }

    /** Passes on the units that are due, and draws. Returns whether there is another picture. */
    boolean draw(@NotNull Pace pace, boolean mirrored, @NotNull ViewPosition view) {
        pace.feed(feed, renderer);
        renderer.setMirrored(mirrored);
        renderer.setView(view.x(), view.y(), view.zoom());
        return renderer.draw();
    }

    long pictureTimeUs() {
        return renderer.pictureTimeUs();
    }

    /** Whether the last picture was drawn. */
    boolean ended() {
        return feed.ended() && renderer.decoderState().endOfStream;
    }

    @NotNull
    Bitmap capture() {
        return screen.capture();
    }

    void close() {
        screen.close();
        renderer.close();
        feed.close();
    }

    void closeAfterContextLoss() {
        renderer.closeAfterContextLoss();
        feed.close();
    }
}
