package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertSame;
import static org.junit.Assert.assertThrows;

import android.graphics.Bitmap;
import java.awt.Color;
import java.awt.image.BufferedImage;
import java.nio.ByteBuffer;
import java.util.List;
import org.junit.Test;

/** Bitmaps, pixels, masks and stickers, in pixels. */
public class VideoEngineTest extends EngineTest {
    @Test
    public void bitmapsStayThroughChangesAndLostContexts() {
        assertNull(engine.capture());
        Bitmap shown = picture();
        engine.show(shown);
        shown.recycle(); // It was copied.
        assertDrawn(LEFT, RIGHT);
        assertDrawn(LEFT, RIGHT);
        assertEquals(LEFT, color(engine.capture(), WIDTH / 2 - 1, 29));
        assertEquals(List.of(0L), frames);
        engine.show(halves(WIDTH, HEIGHT, RIGHT, LEFT).copy(Bitmap.Config.RGB_565, false));
        assertDrawn(RIGHT, LEFT);
        assertEquals(1, starts);
        loseContext();
        assertNull(engine.capture());
        assertDrawn(RIGHT, LEFT);
        engine.suspend();
        engine.wake();
        engine.setMirrored(true);
        assertDrawn(LEFT, RIGHT);
        engine.setMirrored(false);
        engine.setRotation(90); // The left half comes to the top.
        engine.setScaleMode(ScaleMode.STRETCH);
        BufferedImage image = draw();
        assertEquals(RIGHT, pixel(image, SCREEN_WIDTH - 1, 1));
        assertEquals(LEFT, pixel(image, 0, HEIGHT - 2));
        assertEquals(HEIGHT, engine.capture().getWidth());
        engine.close();
        assertEquals(AROUND, pixel(draw(), SCREEN_WIDTH / 2, 15));
    }

    @Test
    public void pixelsOfAnyBufferWithPaddingAndWithout() {
        ByteBuffer tight = halves(PixelLayout.RGBA, WIDTH, HEIGHT, clear(LEFT), clear(RIGHT));
        int position = tight.position();
        engine.show(tight.asReadOnlyBuffer(), PixelLayout.RGBA, WIDTH, HEIGHT);
        tight.clear();
        assertDrawn(LEFT, RIGHT);
        assertEquals(LEFT, color(engine.capture(), 1, 1));
        tight.position(position);

        int rowBytes = 3 * WIDTH + 5;
        ByteBuffer padded = ByteBuffer.allocate(2 + rowBytes * (HEIGHT - 1) + 3 * WIDTH);
        ByteBuffer rgb = halves(PixelLayout.RGB, WIDTH, HEIGHT, RIGHT, LEFT);
        for (int y = 0; y < HEIGHT; ++y) {
            byte[] row = new byte[3 * WIDTH];
            rgb.get(row);
            padded.position(2 + y * rowBytes);
            padded.put(row);
        }
        padded.position(2);
        engine.show(padded, PixelLayout.RGB, WIDTH, HEIGHT, rowBytes);
        assertEquals(2, padded.position());
        assertEquals(padded.capacity(), padded.limit());
        assertDrawn(RIGHT, LEFT);
        assertEquals(2, frames.size());
    }

    @Test
    public void framesOfPixelsMakeNoGarbage() {
        ByteBuffer pixels = ByteBuffer.allocate(PixelLayout.RGBA.bytes(WIDTH, HEIGHT));
        assertNoGarbage(() -> engine.show(pixels, PixelLayout.RGBA, WIDTH, HEIGHT));
    }

    private static Color clear(Color color) {
        return new Color(color.getRed(), color.getGreen(), color.getBlue(), 0);
    }

    private static void refused(String message, Runnable call) {
        assertEquals(
                message, assertThrows(IllegalArgumentException.class, call::run).getMessage());
    }

    @Test
    public void refusesWhatIsNoPictureAndGoesOn() {
        engine.show(picture());
        Bitmap recycled = picture();
        recycled.recycle();
        ByteBuffer bytes = ByteBuffer.allocate(100);
        refused("the bitmap is recycled", () -> engine.show(recycled));
        refused("the bitmap is recycled", () -> engine.setMask(recycled));
        refused("the bitmap is recycled", () -> new Sticker(recycled));
        refused(
                "the picture has 108 bytes, the buffer 100",
                () -> engine.show(bytes, PixelLayout.RGB, 6, 6));
        refused(
                "a row of 12 bytes does not fit into 11",
                () -> engine.show(bytes, PixelLayout.RGBA, 3, 3, 11));
        refused("no picture is 3 x -1", () -> engine.show(bytes, PixelLayout.RGB, 3, -1));
        refused(
                "the picture has 2147483650 bytes, the buffer 100",
                () -> engine.show(bytes, PixelLayout.RGB, 1, 2, Integer.MAX_VALUE));
        refused("0 is not a texture", () -> engine.setMaskTexture(0));
        refused("pictures are not turned by 1", () -> engine.setRotation(1));
        Sticker sticker = new Sticker(picture());
        refused("no place is NaN, 1.0", () -> sticker.moveTo(Float.NaN, 1));
        refused("nothing is scaled by 0.0", () -> sticker.setScale(0));
        refused("no place is 0.0, NaN", () -> engine.drag(0, Float.NaN));
        refused("nothing is scaled by NaN", () -> engine.zoomBy(Float.NaN));
        assertDrawn(LEFT, RIGHT);

        Bitmap tooWide = Bitmap.createBitmap(1 << 17, 1, Bitmap.Config.ARGB_8888);
        engine.setMask(tooWide);
        assertDrawn(LEFT, RIGHT);
        engine.addSticker(new Sticker(tooWide));
        assertDrawn(LEFT, RIGHT);
        engine.show(tooWide);
        assertEquals(AROUND, pixel(draw(), SCREEN_WIDTH / 2, 15));
        for (Exception error : errors) {
            assertSame(
                    RendererException.Reason.PICTURE_SIZE, ((RendererException) error).reason());
        }
        assertEquals(3, errors.size());
        errors.clear();
    }

    @Test
    public void masksStayUntilReplacedHiddenOrCleared() {
        engine.show(picture());
        engine.setMask(halves(2, 1, Color.BLACK, Color.WHITE)); // Smooth in the middle.
        BufferedImage image = draw();
        assertEquals(AROUND, pixel(image, BORDER + 2, 15));
        assertEquals(RIGHT, pixel(image, BORDER + WIDTH - 2, 15));
        Bitmap captured = engine.capture();
        assertEquals(new Color(0, 0, 0, 0), color(captured, 2, 2));
        assertEquals(RIGHT, color(captured, WIDTH - 2, 2));
        engine.setMaskHidden(true);
        assertDrawn(LEFT, RIGHT);
        engine.setMaskHidden(false);

        ByteBuffer half = halves(PixelLayout.RGBA, WIDTH, 1, new Color(255, 255, 255, 51), Color.BLACK);
        engine.setMask(half, PixelLayout.RGBA, WIDTH, 1);
        Color mixed = new Color(48, 112, 80); // A fifth of the picture.
        assertDrawn(mixed, AROUND);
        loseContext();
        assertDrawn(mixed, AROUND);
        engine.setMask(halves(WIDTH, 1, clear(RIGHT), LEFT).copy(Bitmap.Config.ALPHA_8, false));
        assertDrawn(AROUND, RIGHT);
        engine.show(halves(WIDTH, HEIGHT, RIGHT, LEFT));
        engine.clearMask();
        assertDrawn(RIGHT, LEFT);

        int mask = gl.newTexture();
        gl.fill(mask, 2, 1, halves(PixelLayout.RGBA, 2, 1, Color.BLACK, Color.RED).slice());
        engine.setMaskTexture(mask);
        assertDrawn(AROUND, LEFT);
    }

    @Test
    public void stickersLieOverThePictureWhereTheyAre() {
        Bitmap image = halves(4, 4, Color.GREEN, new Color(0, 0, 0, 0));
        Sticker below = new Sticker(image);
        Sticker above = new Sticker(halves(2, 2, new Color(50, 0, 0, 128), Color.WHITE));
        below.moveTo(12, 8); // In the border.
        below.setScale(2);
        above.moveTo(10, 8);
        engine.addSticker(below);
        engine.addSticker(above);
        engine.show(picture());
        engine.drag(WIDTH / 2F, 0); // The picture moves, the stickers do not.
        for (int i = 0; i < 2; ++i) {
            BufferedImage drawn = draw();
            assertEquals(Color.GREEN, pixel(drawn, 8, 4));
            assertEquals(AROUND, pixel(drawn, 13, 4));
            assertEquals(AROUND, pixel(drawn, 8, 3));
            assertEquals(new Color(50, 127, 0), pixel(drawn, 9, 7)); // Multiplied by its alpha.
            assertEquals(Color.WHITE, pixel(drawn, 10, 8));
            assertEquals(LEFT, pixel(drawn, BORDER + WIDTH - 2, 8));
            Bitmap captured = engine.captureScreen();
            for (int y = 0; y < HEIGHT; ++y) {
                assertEquals(drawn.getRGB(9, y), captured.getPixel(9, y));
                assertEquals(drawn.getRGB(70, y), captured.getPixel(70, y));
            }
            loseContext();
        }
        assertSame(above, engine.stickerAt(10.5F, 8.5F));
        assertSame(below, engine.stickerAt(8.1F, 4.1F));
        assertNull(engine.stickerAt(15, 4.1F)); // Transparent there.
        assertNull(engine.stickerAt(7.9F, 8));
        engine.removeSticker(above);
        assertSame(below, engine.stickerAt(10, 8));
        assertEquals(Color.GREEN, pixel(draw(), 9, 8));
        engine.clearStickers();
        assertEquals(AROUND, pixel(draw(), 9, 8));
    }
}
