package org.vornrenderer;

import android.graphics.Bitmap;
import java.io.IOException;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/**
 * Shows clips and pictures in the framebuffer of a GL thread. {@link VornVideoView} is this in a view.
 * Use the engine on a GL thread of the application.
 *
 * <p>All methods but those of stickers and the queries of position, duration and {@link #isPlaying}
 * belong to the GL thread. What is played or shown last replaces what was before.
 *
 * <p>A clip is an H.264 video in a file that MediaExtractor reads. It is turned as the file says, and
 * held to the clip's time: what is late is skipped.
 */
public final class VideoEngine extends SourceEngine {
    /** What happens in an engine. All methods are called on the GL thread. */
    public interface Listener {
        /** A clip, or another kind of source than before, shows its first picture. */
        default void onStart() {}

        /**
         * Another picture was drawn into the framebuffer.
         *
         * @param timeUs its time in the clip, in microseconds; for images and surface textures
         *     their time stamp; 0 for bitmaps and pixels
         */
        default void onFrame(long timeUs) {}

        /**
         * The time runs, or does not any more.
         *
         * @param playing as {@link VideoEngine#isPlaying}
         */
        default void onPlaying(boolean playing) {}

        /** The last picture of a clip that does not loop was shown. */
        default void onEnd() {}

        /**
         * The clip or picture cannot be shown, or not any further, and is closed; or the mask or the
         * stickers cannot be shown, and are forgotten.
         *
         * @param reason a {@link RendererException}, or an exception of the platform
         */
        default void onError(@NotNull Exception reason) {}
    }

    private final Listener listener;
    private final Painter painter = new Painter();
    private final Capture capture = new Capture(painter);
    private int screenWidth;
    private int screenHeight;

    /**
     * An engine that shows nothing.
     *
     * @param listener is told what happens
     */
    public VideoEngine(@NotNull Listener listener) {
        super(listener);
        this.listener = listener;
    }

    @NotNull
    Listener listener() {
        return listener;
    }

    /**
     * Draws the picture that is due, once per displayed frame, into the framebuffer that is bound.
     *
     * <p>Expects the tests of GL off, all colors written, and no sampler objects and unpack buffer
     * bound. Sets viewport, clear color, blend function and unpack alignment; leaves blending off, and
     * no program, vertex array and textures bound.
     *
     * @param width of the screen in pixels
     * @param height of the screen in pixels
     */
    public void draw(int width, int height) {
        if (suspended) {
            Painter.clear(look.borderColor);
            return;
        }
        screenWidth = width;
        screenHeight = height;
        prepareMask();
        boolean isNew = false;
        try {
            isNew = source != null && source.draw(look);
        } catch (IOException | RuntimeException e) {
            fail(e);
        }
        paint(width, height);
        if (isNew) {
            report();
        }
    }

    private void prepareMask() {
        try {
            look.mask.prepare();
        } catch (RuntimeException e) {
            look.mask.clear();
            listener.onError(e);
        }
    }

    private void paint(int width, int height) {
        Painter.clear(look.borderColor);
        Picture picture = source == null ? null : source.picture();
        if (picture == null && stickers.isEmpty()) {
            return;
        }
        painter.begin(width, height);
        if (picture != null) {
            place.fit(picture, width, height, look.scaleMode);
            painter.draw(
                    picture.texture(), place.left(), place.top(), place.width(), place.height(),
                    look.mask.isShown() ? Painter.Blend.STRAIGHT : Painter.Blend.OPAQUE);
        }
        try {
            stickers.draw(painter);
        } catch (RuntimeException e) {
            stickers.clear();
            listener.onError(e);
        }
        painter.end();
    }

    /**
     * The picture as it was drawn last, with its mask, without borders and stickers.
     *
     * @return null before the first picture
     */
    @Nullable
    public Bitmap capture() {
        Picture picture = source == null ? null : source.picture();
        return picture == null ? null : capture.take(picture, look.mask.isShown());
    }

    /**
     * The screen as it was drawn last: picture, mask, stickers and borders.
     *
     * @return null before the first draw
     */
    @Nullable
    public Bitmap captureScreen() {
        if (screenWidth == 0 || suspended) {
            return null;
        }
        return capture.take(screenWidth, screenHeight, () -> paint(screenWidth, screenHeight));
    }

    /** Frees everything but what is needed to continue with {@link #wake}. */
    public void suspend() {
        free(false);
        suspended = true;
    }

    /** Continues after {@link #suspend}: the next draw shows the same picture, mask and stickers. */
    public void wake() {
        suspended = false;
    }

    /**
     * After the GL context was lost with all its objects: the next draw shows the same picture, mask
     * and stickers. Only a mask from a texture is gone.
     */
    public void contextLost() {
        free(true);
    }

    private void free(boolean contextLost) {
        if (source != null) {
            source.free(contextLost);
        }
        look.mask.free(contextLost);
        stickers.free(contextLost);
        painter.free(contextLost);
    }

    /** Frees everything and forgets what is shown. Mask and stickers stay for what is shown next. */
    public void close() {
        change(null);
        free(false);
    }

    @Override
    void fail(@NotNull Exception reason) {
        change(null);
        listener.onError(reason);
    }

    private void report() {
        if (!started) {
            started = true;
            listener.onStart();
        }
        listener.onFrame(source.timeUs());
    }
}
