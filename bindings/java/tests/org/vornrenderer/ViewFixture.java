package org.vornrenderer;

import static org.junit.Assert.assertNotNull;
import static org.junit.Assert.assertTrue;

import android.content.Context;
import android.graphics.Bitmap;
import android.net.Uri;
import android.opengl.GLES20;
import android.util.AttributeSet;
import android.view.View;
import android.view.Windows;
import java.io.File;
import java.nio.ByteBuffer;
import java.util.List;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.TimeUnit;
import java.util.function.BiFunction;
import java.util.function.BooleanSupplier;
import java.util.function.Supplier;
import org.junit.After;
import org.junit.Before;
import org.junit.runner.RunWith;
import org.junit.runners.Parameterized;
import org.junit.runners.Parameterized.Parameters;

/** Both views, unchanged, with Android's classes for the desktop. Pictures have their number in bars. */
@RunWith(Parameterized.class)
public abstract class ViewFixture {
    static final int WIDTH = 320;
    static final int HEIGHT = 240;
    static final int FRAME_US = 40_000;
    static final int LAST = 149;
    static final int BITS = 8;
    static final int PATIENCE_S = 60;

    /** Pictures that a decoder that is slow gives out after the one that was sought. */
    static final int OVERSHOOT = 3;

    static final File CLIPS = new File(System.getProperty("vorn.clips"));

    final BlockingQueue<Exception> errors = new LinkedBlockingQueue<>();
    final CountDownLatch end = new CountDownLatch(1);
    private final BiFunction<Context, AttributeSet, VideoPlayer> make;
    VideoPlayer view;

    ViewFixture(BiFunction<Context, AttributeSet, VideoPlayer> make) {
        this.make = make;
    }

    @Parameters(name = "{0}")
    public static List<Object[]> views() {
        BiFunction<Context, AttributeSet, VideoPlayer> surface = VornVideoView::new;
        BiFunction<Context, AttributeSet, VideoPlayer> texture = VornTextureView::new;
        return List.of(
                new Object[] {"VornVideoView", surface}, new Object[] {"VornTextureView", texture});
    }

    @Before
    public void open() {
        open(null);
    }

    void open(AttributeSet layout) {
        view = make.apply(new Context() {}, layout);
        view.setErrorListener(errors::add);
        view.setEndListener(end::countDown);
        layOut(WIDTH, HEIGHT);
    }

    View asView() {
        return (View) view;
    }

    void layOut(int width, int height) {
        asView().layout(0, 0, width, height);
    }

    @After
    public void close() {
        view.onPause();
        Windows.leave(asView());
        assertTrue(errors.toString(), errors.isEmpty());
    }

    static Uri clip(String name) {
        return Uri.fromFile(new File(CLIPS, name));
    }

    /** Waits until a picture of this number or a later one is shown, and returns its number. */
    int awaitPicture(int number) throws InterruptedException {
        BlockingQueue<Long> times = new LinkedBlockingQueue<>();
        view.setFrameListener(times::add);
        Long time;
        do {
            time = times.poll(PATIENCE_S, TimeUnit.SECONDS);
            assertNotNull("no picture " + number, time);
        } while (time < (long) number * FRAME_US);
        view.setFrameListener(null);
        return (int) (time / FRAME_US);
    }

    Bitmap capture() throws InterruptedException {
        BlockingQueue<Bitmap> taken = new LinkedBlockingQueue<>();
        view.capture(taken::add);
        return taken.poll(PATIENCE_S, TimeUnit.SECONDS);
    }

    /** A picture that stays: what its bars say, and which one it is by the clip's position. */
    static final class Still {
        final int number;
        final int position;

        Still(Bitmap picture, long positionUs) {
            number = number(picture);
            position = (int) Math.min(LAST, positionUs / FRAME_US);
        }
    }

    /** The picture, once the decoder gives no more out. */
    Still settled() throws Exception {
        Still still = still();
        for (int same = 0; same < 10; ++same) {
            Thread.sleep(20);
            Still now = still();
            same = now.number == still.number ? same : 0;
            still = now;
        }
        return still;
    }

    Still still() throws Exception {
        CompletableFuture<Still> taken = new CompletableFuture<>();
        VideoEngine engine = view.engine();
        view.queueEvent(() -> taken.complete(new Still(engine.capture(), engine.positionUs())));
        return taken.get(PATIENCE_S, TimeUnit.SECONDS);
    }

    static int number(Bitmap picture) {
        int number = 0;
        for (int bit = 0; bit < BITS; ++bit) {
            int x = (2 * bit + 1) * picture.getWidth() / (2 * BITS);
            number |= (picture.getPixel(x, picture.getHeight() / 2) >> 7 & 1) << bit;
        }
        return number;
    }

    /** What is on the screen, on the GL thread, without garbage. */
    static int numberOnScreen(ByteBuffer row) {
        GLES20.glReadPixels(0, HEIGHT / 2, WIDTH, 1, GLES20.GL_RGBA, GLES20.GL_UNSIGNED_BYTE, row);
        int number = 0;
        for (int bit = 0; bit < BITS; ++bit) {
            number |= (row.get((2 * bit + 1) * WIDTH / (2 * BITS) * 4) >> 7 & 1) << bit;
        }
        return number;
    }

    static void awaitThat(BooleanSupplier condition) throws InterruptedException {
        awaitThat(condition, () -> "it took too long");
    }

    static void awaitThat(BooleanSupplier condition, Supplier<String> otherwise)
            throws InterruptedException {
        long end = System.nanoTime() + TimeUnit.SECONDS.toNanos(PATIENCE_S);
        while (!condition.getAsBoolean() && System.nanoTime() < end) {
            Thread.sleep(5);
        }
        assertTrue(otherwise.get(), condition.getAsBoolean());
    }
}
