package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;

import android.graphics.Bitmap;
import android.graphics.ImageFormat;
import android.graphics.Rect;
import android.graphics.SurfaceTexture;
import android.hardware.DataSpace;
import android.media.TestImage;
import android.os.Build;
import android.view.Surface;
import java.awt.Color;
import java.awt.image.BufferedImage;
import java.nio.ByteBuffer;
import org.junit.Test;

/** Images of cameras, and surfaces that others draw into. */
public class LiveSourceTest extends EngineTest {
    private static final int[] LEFT_YUV = {120, 90, 200};
    private static final int[] RIGHT_YUV = {70, 170, 110};

    /** Red and blue of the standards' luma, by number. */
    private static final double[][] LUMA = {{0.299, 0.114}, {0.2126, 0.0722}, {0.2627, 0.0593}};

    private static final int BT601 = 0;
    private static final int BT709 = 1;
    private static final int BT2020 = 2;

    private static int level(double value) {
        return (int) Math.round(Math.max(0, Math.min(255, value)));
    }

    private static Color rgb(int[] yuv, int standard, boolean full) {
        double red = LUMA[standard][0];
        double blue = LUMA[standard][1];
        double y = full ? yuv[0] : (yuv[0] - 16) * 255 / 219.0;
        double u = (yuv[1] - 128) * (full ? 1 : 255 / 224.0);
        double v = (yuv[2] - 128) * (full ? 1 : 255 / 224.0);
        double r = y + 2 * (1 - red) * v;
        double b = y + 2 * (1 - blue) * u;
        return new Color(level(r), level((y - red * r - blue * b) / (1 - red - blue)), level(b));
    }

    private static TestImage image(int width, int height, int step, boolean vFirst, int padding) {
        return new TestImage(width, height, step, vFirst, padding, LEFT_YUV, RIGHT_YUV);
    }

    private static void assertNear(Color expected, Bitmap picture, int x, int y) {
        Color found = color(picture, x, y);
        String text = found + " at " + x + ", " + y;
        assertEquals(text, expected.getRed(), found.getRed(), 2);
        assertEquals(text, expected.getGreen(), found.getGreen(), 2);
        assertEquals(text, expected.getBlue(), found.getBlue(), 2);
    }

    /** Before API level 33, images do not state their colors. */
    private void assertShown(TestImage image, int width, int height, int stated, boolean statedFull) {
        int standard = Build.VERSION.SDK_INT < 33 ? BT601 : stated;
        boolean full = Build.VERSION.SDK_INT < 33 || statedFull;
        engine.show(image);
        draw();
        assertTrue(image.closed);
        Bitmap picture = engine.capture();
        assertEquals(width, picture.getWidth());
        assertEquals(height, picture.getHeight());
        for (int y : new int[] {0, height / 2, height - 1}) {
            assertNear(rgb(LEFT_YUV, standard, full), picture, 0, y);
            assertNear(rgb(LEFT_YUV, standard, full), picture, width / 2 - 3, y);
            assertNear(rgb(RIGHT_YUV, standard, full), picture, width / 2 + 3, y);
            assertNear(rgb(RIGHT_YUV, standard, full), picture, width - 1, y);
        }
    }

    @Test
    public void imagesOfAllLayoutsAndColors() {
        for (int padding : new int[] {0, 5, 6}) { // With 5, rows end within a pair of V and U.
            assertShown(image(WIDTH, HEIGHT, 1, false, padding), WIDTH, HEIGHT, BT601, true);
            assertShown(image(WIDTH, HEIGHT, 2, false, padding), WIDTH, HEIGHT, BT601, true);
            assertShown(image(WIDTH, HEIGHT, 2, true, padding), WIDTH, HEIGHT, BT601, true);
            TestImage odd = image(23, 13, 2, true, padding);
            odd.format = ImageFormat.NV21;
            assertShown(odd, 23, 13, BT601, true);
        }
        TestImage image = image(WIDTH, HEIGHT, 2, false, 0);
        image.dataSpace = DataSpace.STANDARD_BT709 | DataSpace.RANGE_LIMITED;
        assertShown(image, WIDTH, HEIGHT, BT709, false);
        image = image(WIDTH, HEIGHT, 2, false, 0);
        image.dataSpace = DataSpace.STANDARD_BT2020 | DataSpace.RANGE_FULL;
        assertShown(image, WIDTH, HEIGHT, BT2020, true);
        image = image(WIDTH + 40, HEIGHT + 8, 1, false, 0);
        image.crop = new Rect(20, 2, WIDTH + 20, HEIGHT + 2);
        image.dataSpace = DataSpace.STANDARD_BT601_625 | DataSpace.RANGE_LIMITED;
        image.timestamp = 5_000_000;
        assertShown(image, WIDTH, HEIGHT, BT601, false);
        assertEquals(1, starts);
        assertEquals(Long.valueOf(5000), frames.get(frames.size() - 1));

        loseContext();
        assertEquals(AROUND, pixel(draw(), SCREEN_WIDTH / 2, 15));
        engine.setRotation(90);
        engine.show(image(WIDTH, HEIGHT, 2, true, 0));
        draw();
        assertNear(rgb(LEFT_YUV, BT601, true), engine.capture(), HEIGHT / 2, 2);
    }

    @Test
    public void imagesMakeNoGarbage() {
        TestImage image = image(WIDTH, HEIGHT, 2, true, 0);
        assertNoGarbage(
                () -> {
                    image.closed = false;
                    engine.show(image);
                });
    }

    private void assertRefused(TestImage image) {
        engine.show(image);
        draw();
        assertTrue(image.closed);
        assertNull(engine.capture());
        assertEquals(1, errors.size());
        assertTrue(errors.remove(0) instanceof IllegalArgumentException);
    }

    @Test
    public void imagesOfOtherLayoutsAreRefusedAndUnusedOnesClosed() {
        TestImage other = image(WIDTH, HEIGHT, 1, false, 0);
        other.format = ImageFormat.PRIVATE;
        assertRefused(other);
        TestImage apart = image(WIDTH, HEIGHT, 1, false, 0);
        ((TestImage.TestPlane) apart.planes[2]).step = 5;
        assertRefused(apart);
        TestImage cut = image(WIDTH, HEIGHT, 2, false, 0);
        ByteBuffer bytes = ((TestImage.TestPlane) cut.planes[1]).bytes;
        bytes.limit(bytes.limit() - 1);
        assertRefused(cut);

        TestImage first = image(WIDTH, HEIGHT, 1, false, 0);
        engine.imageSlot().offer(first);
        TestImage second = image(WIDTH, HEIGHT, 1, false, 0);
        engine.imageSlot().offer(second);
        assertTrue(first.closed);
        engine.suspend();
        engine.takeImage.run();
        assertTrue(second.closed);
        engine.wake();
        TestImage last = image(WIDTH, HEIGHT, 1, false, 0);
        engine.show(last);
        engine.close();
        assertTrue(last.closed);
    }

    @Test
    public void surfacesShowWhatComesAsItsMatrixSays() {
        assertThrows(IllegalArgumentException.class, () -> engine.surfaceTexture(0, 1));
        SurfaceTexture texture = engine.surfaceTexture(WIDTH, HEIGHT);
        Surface surface = new Surface(texture);
        assertEquals(AROUND, pixel(draw(), SCREEN_WIDTH / 2, 15));
        assertEquals(0, starts);
        Producer.post(surface, halves(PixelLayout.RGBA, WIDTH, HEIGHT, LEFT, RIGHT).slice(), 0);
        assertDrawn(LEFT, RIGHT);
        assertDrawn(LEFT, RIGHT);
        assertEquals(1, frames.size());
        assertEquals(texture.getTimestamp() / 1000, (long) frames.get(0));
        assertEquals(LEFT, color(engine.capture(), 1, 1));

        engine.suspend(); // The frame is still there afterwards.
        loseContext();
        engine.wake();
        assertDrawn(LEFT, RIGHT);

        ByteBuffer next = halves(PixelLayout.RGBA, WIDTH, HEIGHT, RIGHT, LEFT).slice();
        Producer.post(surface, next, Producer.ROTATE_90);
        engine.setScaleMode(ScaleMode.STRETCH);
        BufferedImage image = draw(); // The left half has come to the top.
        assertEquals(RIGHT, pixel(image, 5, 5));
        assertEquals(RIGHT, pixel(image, SCREEN_WIDTH - 5, 5));
        assertEquals(LEFT, pixel(image, 5, HEIGHT - 5));
        assertEquals(HEIGHT, engine.capture().getWidth());

        loseContext(); // Without a word before: there is no way back.
        draw();
        assertTrue(errors.remove(0) instanceof IllegalStateException);
        assertTrue(texture.isReleased());
        surface.release();
        SurfaceTexture another = engine.surfaceTexture(WIDTH, HEIGHT);
        draw();
        engine.show(picture());
        assertTrue(another.isReleased());
        assertFalse(errors.size() > 0);
    }
}
