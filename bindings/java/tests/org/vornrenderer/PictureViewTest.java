package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import android.content.Context;
import android.graphics.Bitmap;
import android.graphics.SurfaceTexture;
import android.media.Image;
import android.media.TestImage;
import android.view.MotionEvent;
import android.view.Surface;
import android.view.View;
import android.view.Windows;
import java.nio.ByteBuffer;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.TimeUnit;
import org.junit.Test;

/** Pictures, masks and stickers from the UI thread, in both views. */
public class PictureViewTest {
    private static final int WIDTH = 64;
    private static final int HEIGHT = 48;
    private static final int RED = 0xFFFF0000;
    private static final int BLUE = 0xFF0000FF;
    private static final int PATIENCE_S = 60;

    private final BlockingQueue<Exception> errors = new LinkedBlockingQueue<>();

    private static Bitmap flat(int width, int height, int color) {
        Bitmap bitmap = Bitmap.createBitmap(width, height, Bitmap.Config.ARGB_8888);
        for (int i = 0; i < width * height; ++i) {
            bitmap.setPixel(i % width, i / width, color);
        }
        return bitmap;
    }

    private static ByteBuffer pixels(int color) {
        ByteBuffer pixels = ByteBuffer.allocateDirect(4 * WIDTH * HEIGHT);
        flat(WIDTH, HEIGHT, color).copyPixelsToBuffer(pixels);
        return pixels.rewind();
    }

    private static Bitmap capture(VideoPlayer view) throws InterruptedException {
        BlockingQueue<Bitmap> taken = new LinkedBlockingQueue<>();
        Bitmap picture = null;
        while (picture == null) {
            view.capture(each -> taken.add(each != null ? each : flat(1, 1, 0)));
            Bitmap captured = taken.poll(PATIENCE_S, TimeUnit.SECONDS);
            picture = captured.getWidth() > 1 ? captured : null;
        }
        return picture;
    }

    /** With one of the next frames. */
    private static void assertComes(VideoPlayer view, int color) throws InterruptedException {
        long end = System.nanoTime() + TimeUnit.SECONDS.toNanos(PATIENCE_S);
        int found = capture(view).getPixel(1, 1);
        while (found != color && System.nanoTime() < end) {
            Thread.sleep(5);
            found = capture(view).getPixel(1, 1);
        }
        assertEquals(color, found);
    }

    private void assertShows(VideoPlayer view, int color, Runnable show) throws InterruptedException {
        CountDownLatch shown = new CountDownLatch(1);
        view.setFrameListener(timeUs -> shown.countDown());
        show.run();
        assertTrue(shown.await(PATIENCE_S, TimeUnit.SECONDS));
        assertEquals(color, capture(view).getPixel(WIDTH / 2, HEIGHT / 2));
    }

    private static boolean touch(View view, int action, float x, float y) {
        return view.onTouchEvent(MotionEvent.obtain(0, 0, action, x, y, 0));
    }

    @Test
    public void theSurfaceView() throws InterruptedException {
        showsDecoratesAndContinues(new VornVideoView(new Context() {}));
    }

    @Test
    public void theTextureView() throws InterruptedException {
        showsDecoratesAndContinues(new VornTextureView(new Context() {}));
    }

    private <V extends View & VideoPlayer> void showsDecoratesAndContinues(V view)
            throws InterruptedException {
        view.setErrorListener(errors::add);
        view.layout(0, 0, WIDTH, HEIGHT);
        assertShows(view, RED, () -> view.show(flat(WIDTH, HEIGHT, RED)));
        assertShows(view, BLUE, () -> view.show(pixels(BLUE), PixelLayout.RGBA, WIDTH, HEIGHT));
        view.setMask(flat(1, 1, 0xFF000000));
        assertComes(view, 0);
        view.onPause();
        view.onResume();
        assertComes(view, 0);
        view.clearMask();
        assertComes(view, BLUE);
        int[] gray = {128, 128, 128};
        Image image = new TestImage(WIDTH, HEIGHT, 2, true, 0, gray, gray);
        assertShows(view, 0xFF808080, () -> view.show(image));
        SurfaceTexture texture = view.surfaceTexture(WIDTH, HEIGHT);
        Surface surface = new Surface(texture);
        assertShows(view, RED, () -> Producer.post(surface, pixels(RED), 0));
        view.onPause();
        view.onResume();
        assertComes(view, RED);
        assertShows(view, BLUE, () -> Producer.post(surface, pixels(BLUE), 0));
        stickersFollowTheFinger(view);
        view.onPause();
        Windows.leave(view);
        assertTrue(errors.toString(), errors.isEmpty());
    }

    private static <V extends View & VideoPlayer> void stickersFollowTheFinger(V view)
            throws InterruptedException {
        Sticker sticker = new Sticker(flat(10, 10, RED));
        sticker.moveTo(20, 20);
        view.addSticker(sticker);
        touch(view, MotionEvent.ACTION_DOWN, 22, 22);
        touch(view, MotionEvent.ACTION_MOVE, 42, 32);
        touch(view, MotionEvent.ACTION_UP, 42, 32);
        assertEquals(40, sticker.x(), 0);
        assertEquals(30, sticker.y(), 0);
        assertNull(view.stickerAt(20, 20));
        assertEquals(BLUE, capture(view).getPixel(1, 1)); // The picture has not moved.
        sticker.setDraggable(false);
        touch(view, MotionEvent.ACTION_DOWN, 40, 30);
        touch(view, MotionEvent.ACTION_MOVE, 50, 30); // Moves the picture instead.
        touch(view, MotionEvent.ACTION_UP, 50, 30);
        assertEquals(40, sticker.x(), 0);
        assertComes(view, 0xFF000000);
    }
}
