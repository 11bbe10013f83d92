package org.vornrenderer.sample;

import android.content.Context;
import android.net.Uri;
import android.opengl.GLES30;
import android.opengl.GLSurfaceView;
import java.io.IOException;
import java.nio.ByteBuffer;
import java.util.Arrays;
import javax.microedition.khronos.egl.EGLConfig;
import javax.microedition.khronos.opengles.GL10;
import org.vornrenderer.PixelLayout;
import org.vornrenderer.VideoRenderer;
import org.vornrenderer.VideoSource;

/** Plays a file on the screen. All methods run on the GL thread. */
final class Player implements GLSurfaceView.Renderer {
    /** A mask that hides nothing. Only a renderer with a mask has a view that moves. */
    private final ByteBuffer white =
            ByteBuffer.allocateDirect(3).put(0, (byte) 255).put(1, (byte) 255).put(2, (byte) 255);

    private final Context context;
    private final Runnable unplayable;
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

    Player(Context context, Runnable unplayable) {
        this.context = context;
        this.unplayable = unplayable;
    }

    /** The context is new. Objects of the old one are gone; the decoder must still be closed. */
    @Override
    public void onSurfaceCreated(GL10 gl, EGLConfig config) {
        close();
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
        feed.feed(renderer);
        renderer.setView(view.x(), view.zoom());
        renderer.draw(null, white);
        stage.show(width, height);
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

    void drag(float pixels) {
        if (stage != null) {
            view.drag(pixels / stage.shownWidth());
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
        positionUs = feed.positionUs();
        feed.close();
        stage.close();
        renderer.close();
        renderer = null;
        feed = null;
        stage = null;
    }

    private void open() {
        try {
            feed = new UnitFeed(context, file, positionUs);
        } catch (IOException | IllegalArgumentException | SecurityException e) {
            file = null;
            unplayable.run();
            return;
        }
        stage = new Stage(feed.width(), feed.height());
        renderer =
                new VideoRenderer.Builder(VideoSource.H264, feed.width(), feed.height())
                        .destination(stage.picture())
                        .mask(PixelLayout.RGB, 1, 1)
                        .build();
        renderer.setMirrored(mirrored);
        renderer.setStickers(stage.sticker(), stickers);
    }
}
