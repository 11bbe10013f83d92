package org.vornrenderer.sample;

import android.content.Context;
import android.net.Uri;
import android.opengl.GLES30;
import android.opengl.GLSurfaceView;
import java.io.IOException;
import java.util.Arrays;
import java.util.function.Consumer;
import javax.microedition.khronos.egl.EGLConfig;
import javax.microedition.khronos.opengles.GL10;
import org.vornrenderer.VideoRenderer;
import org.vornrenderer.VideoSource;

/** Plays a file on the screen. All methods run on the GL thread. */
final class Player implements GLSurfaceView.Renderer {
    private final Context context;
    private final Consumer<Exception> unplayable;
    private final ViewPosition view = new ViewPosition();
    private int[] stickers = {};
    private boolean mirrored;
    private Uri file;
    private long positionUs;

    // Not null while a file is shown.
    private UnitFeed feed;
    private VideoRenderer renderer;
    private Stage stage;

    private int width;
    private int height;

    Player(Context context, Consumer<Exception> unplayable) {
        this.context = context;
        this.unplayable = unplayable;
    }

    /** The context is new. Objects of the old one are gone; the decoder must still be closed. */
    @Override
    public void onSurfaceCreated(GL10 gl, EGLConfig config) {
        if (renderer != null) {
            renderer.closeAfterContextLoss();
            forget();
        }
    }

    @Override
    public void onSurfaceChanged(GL10 gl, int newWidth, int newHeight) {
        width = newWidth;
        height = newHeight;
    }

    @Override
    public void onDrawFrame(GL10 gl) {
        if (renderer == null && file != null) {
            open();
        }
        if (renderer == null) {
            GLES30.glClear(GLES30.GL_COLOR_BUFFER_BIT);
            return;
        }
        try {
            feed.feed(renderer);
            renderer.setView(view.x(), view.y(), view.zoom());
            renderer.draw();
            stage.show(width, height);
        } catch (IllegalStateException e) {
            giveUp(e);
        }
    }

    void play(Uri newFile) {
        close();
        file = newFile;
        positionUs = 0;
        stickers = new int[0];
    }

    void setMirrored(boolean on) {
        mirrored = on;
        if (renderer != null) {
            renderer.setMirrored(on);
        }
    }

    void drag(float right, float down) {
        if (stage != null) {
            view.drag(right / stage.shownWidth(), down / stage.shownHeight());
        }
    }

    void zoom(float factor) {
        view.zoomBy(factor);
    }

    /** Puts a sticker where the screen was touched. */
    void putSticker(float x, float y) {
        if (stage == null) {
            return;
        }
        stickers = Arrays.copyOf(stickers, stickers.length + 2);
        stickers[stickers.length - 2] = view.anchorX(stage.partX(x), feed.width());
        stickers[stickers.length - 1] = view.anchorY(stage.partY(y), feed.height());
        renderer.setStickers(stage.sticker(), stickers);
    }

    /** Frees everything. The next frame opens the file again at the same position. */
    void close() {
        if (renderer == null) {
            return;
        }
        stage.close();
        renderer.close();
        forget();
    }

    private void forget() {
        positionUs = feed.positionUs();
        feed.close();
        renderer = null;
        feed = null;
        stage = null;
    }

    private void giveUp(Exception reason) {
        close();
        file = null;
        unplayable.accept(reason);
    }

    private void open() {
        try {
            feed = new UnitFeed(context, file, positionUs);
            stage = new Stage(feed.width(), feed.height());
            renderer =
                    new VideoRenderer.Builder(VideoSource.H264, feed.width(), feed.height())
                            .destination(stage.picture())
                            .build();
        } catch (IOException
                | IllegalArgumentException
                | IllegalStateException
                | SecurityException e) {
            closeHalfOpen();
            giveUp(e);
            return;
        }
        renderer.setMirrored(mirrored);
        renderer.setStickers(stage.sticker(), stickers);
    }

    private void closeHalfOpen() {
        if (stage != null) {
            stage.close();
            stage = null;
        }
        if (feed != null) {
            feed.close();
            feed = null;
        }
    }
}
