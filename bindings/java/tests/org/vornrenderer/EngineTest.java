package org.vornrenderer;

import static org.junit.Assert.assertEquals;

import android.graphics.Bitmap;
import android.opengl.GLES20;
import java.awt.Color;
import java.awt.image.BufferedImage;
import java.lang.management.ManagementFactory;
import java.nio.ByteBuffer;
import java.util.ArrayList;
import java.util.List;
import org.junit.After;
import org.junit.Before;
import org.vornrenderer.offscreen.OffscreenContext;

/** An engine, and a screen that is wider than the pictures. */
public abstract class EngineTest extends GlTest {
    protected static final int WIDTH = 60;
    protected static final int HEIGHT = 30;
    protected static final int SCREEN_WIDTH = 100;
    protected static final int BORDER = (SCREEN_WIDTH - WIDTH) / 2;
    protected static final Color LEFT = new Color(200, 80, 41);
    protected static final Color RIGHT = new Color(30, 60, 190);
    protected static final Color AROUND = new Color(10, 120, 90);

    protected final List<Exception> errors = new ArrayList<>();
    protected final List<Long> frames = new ArrayList<>();
    protected int starts;
    protected RenderTarget screen;
    protected final VideoEngine engine =
            new VideoEngine(
                    new VideoEngine.Listener() {
                        @Override
                        public void onStart() {
                            ++starts;
                        }

                        @Override
                        public void onFrame(long timeUs) {
                            frames.add(timeUs);
                        }

                        @Override
                        public void onError(Exception reason) {
                            errors.add(reason);
                        }
                    });

    @Before
    public void open() {
        screen = new RenderTarget(SCREEN_WIDTH, HEIGHT);
        engine.setBorderColor(AROUND.getRGB());
    }

    @After
    public void close() {
        engine.close();
        assertEquals(List.of(), errors);
        assertEquals(0, GLES20.glGetError());
    }

    protected void loseContext() {
        gl.close();
        gl = new OffscreenContext();
        open();
        engine.contextLost();
    }

    protected static Bitmap bitmap(ByteBuffer rgba, int width, int height) {
        Bitmap bitmap = Bitmap.createBitmap(width, height, Bitmap.Config.ARGB_8888);
        bitmap.copyPixelsFromBuffer(rgba);
        return bitmap;
    }

    protected static Bitmap halves(int width, int height, Color left, Color right) {
        return bitmap(halves(PixelLayout.RGBA, width, height, left, right), width, height);
    }

    protected static Bitmap picture() {
        return halves(WIDTH, HEIGHT, LEFT, RIGHT);
    }

    /** The screen after a draw, its first row at the top. */
    protected BufferedImage draw() {
        screen.bind();
        engine.draw(SCREEN_WIDTH, HEIGHT);
        screen.unbind();
        BufferedImage upward = gl.readImage(screen.texture(), SCREEN_WIDTH, HEIGHT);
        BufferedImage image =
                new BufferedImage(SCREEN_WIDTH, HEIGHT, BufferedImage.TYPE_INT_ARGB);
        for (int y = 0; y < HEIGHT; ++y) {
            for (int x = 0; x < SCREEN_WIDTH; ++x) {
                image.setRGB(x, y, upward.getRGB(x, HEIGHT - 1 - y));
            }
        }
        return image;
    }

    protected void assertDrawn(Color left, Color right) {
        BufferedImage image = draw();
        assertEquals(AROUND, pixel(image, BORDER - 1, 15));
        assertEquals(left, pixel(image, BORDER + 1, 1));
        assertEquals(left, pixel(image, BORDER + WIDTH / 2 - 2, 28));
        assertEquals(right, pixel(image, BORDER + WIDTH / 2 + 1, 1));
        assertEquals(right, pixel(image, BORDER + WIDTH - 2, 28));
        assertEquals(AROUND, pixel(image, BORDER + WIDTH, 15));
    }

    protected static Color color(Bitmap bitmap, int x, int y) {
        return new Color(bitmap.getPixel(x, y), true);
    }

    /** The VM itself allocates now and then, so the best of some rounds counts. */
    protected void assertNoGarbage(Runnable show) {
        allocated(show); // All classes are loaded, all methods linked.
        long least = Long.MAX_VALUE;
        for (int i = 0; i < 4; ++i) {
            least = Math.min(least, allocated(show));
        }
        assertEquals(0, least);
    }

    /** Bytes of Java's memory for 20 pictures. */
    private long allocated(Runnable show) {
        com.sun.management.ThreadMXBean threads =
                (com.sun.management.ThreadMXBean) ManagementFactory.getThreadMXBean();
        long self = Thread.currentThread().getId();
        screen.bind();
        frames.clear();
        long call = -threads.getThreadAllocatedBytes(self);
        call += threads.getThreadAllocatedBytes(self);
        long before = threads.getThreadAllocatedBytes(self);
        for (int i = 0; i < 20; ++i) {
            show.run();
            engine.draw(SCREEN_WIDTH, HEIGHT);
        }
        return threads.getThreadAllocatedBytes(self) - before - call;
    }
}
