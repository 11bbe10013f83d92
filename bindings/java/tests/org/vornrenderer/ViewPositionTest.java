package org.vornrenderer;

import static org.junit.Assert.assertEquals;

import java.awt.Color;
import java.awt.image.BufferedImage;
import org.junit.Test;

/** The arithmetic of the view, compared with what the renderer draws. */
public class ViewPositionTest extends GlTest {
    private static final int WIDTH = 400;
    private static final int HEIGHT = 300;
    private static final Color STICKER = new Color(10, 20, 30, 40);

    private final ViewPosition view = new ViewPosition();

    /** What is drawn of a white picture, with a sticker where the output was touched. */
    private BufferedImage drawTouched(float x, float y) {
        int sticker = gl.newTexture();
        gl.fill(sticker, 1, 1, flat(PixelLayout.RGBA, 1, 1, STICKER).slice());
        try (VideoRenderer renderer = builder(VideoSource.RGBA, WIDTH, HEIGHT).build()) {
            renderer.setView(view.x(), view.y(), view.zoom());
            renderer.setStickers(sticker, view.anchorX(x, WIDTH), view.anchorY(y, HEIGHT));
            renderer.draw(flat(PixelLayout.RGBA, WIDTH, HEIGHT, Color.WHITE));
        }
        return drawn(WIDTH, HEIGHT);
    }

    /** The sticker ends on both sides of the touched point, equally far from it. */
    private void assertStickerAt(float x, float y) {
        BufferedImage image = drawTouched(x, y);
        int column = Math.round(x * WIDTH);
        int row = Math.round(y * HEIGHT);
        int right = column;
        int bottom = row;
        while (pixel(image, right, row).equals(STICKER)) {
            ++right;
        }
        while (pixel(image, column, bottom).equals(STICKER)) {
            ++bottom;
        }
        int left = 2 * column - right;
        int top = 2 * row - bottom;
        assertEquals(STICKER, pixel(image, left + 3, row));
        assertEquals(Color.WHITE, pixel(image, left - 3, row));
        assertEquals(STICKER, pixel(image, column, top + 3));
        assertEquals(Color.WHITE, pixel(image, column, top - 3));
    }

    @Test
    public void stickersAppearWhereTheOutputWasTouched() {
        assertStickerAt(0.3F, 0.6F);
        view.zoomBy(1.5F);
        assertStickerAt(0.7F, 0.2F);
        view.drag(0.2F, 0.1F);
        assertStickerAt(0.5F, 0.5F);
    }

    /** A sticker belongs to a point of the picture, which moves by the part dragged. */
    @Test
    public void draggingMovesThePictureByThePartDragged() {
        view.zoomBy(1.5F);
        int column = view.anchorX(0.5F, WIDTH);
        int row = view.anchorY(0.5F, HEIGHT);
        view.drag(0.1F, -0.2F);
        assertEquals(column, view.anchorX(0.6F, WIDTH), 1);
        assertEquals(row, view.anchorY(0.3F, HEIGHT), 1);
    }
}
