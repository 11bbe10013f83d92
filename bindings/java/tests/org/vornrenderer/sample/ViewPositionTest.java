package org.vornrenderer.sample;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;

import java.nio.ByteBuffer;
import org.junit.Test;
import org.vornrenderer.PixelLayout;
import org.vornrenderer.VideoRenderer;
import org.vornrenderer.VideoSource;
import org.vornrenderer.offscreen.OffscreenContext;

/** The Android sample's arithmetic, held against what the renderer draws. */
public class ViewPositionTest {
    private static final int WIDTH = 400;
    private static final int HEIGHT = 300;
    private static final byte[] STICKER = {10, 20, 30, 40};

    private final ViewPosition view = new ViewPosition();

    /** What is drawn of a white picture, with a sticker where the output was touched. */
    private ByteBuffer drawTouched(OffscreenContext gl, float x, float y) {
        ByteBuffer frame = ByteBuffer.allocateDirect(PixelLayout.RGBA.bytes(WIDTH, HEIGHT));
        while (frame.hasRemaining()) {
            frame.put((byte) 255);
        }
        frame.rewind();
        ByteBuffer mask = ByteBuffer.allocateDirect(3).put(0, (byte) 1);
        int texture = gl.newTexture();
        int sticker = gl.newTexture();
        gl.fill(sticker, 1, 1, ByteBuffer.allocateDirect(4).put(STICKER));
        try (VideoRenderer renderer =
                new VideoRenderer.Builder(VideoSource.RGBA, WIDTH, HEIGHT)
                        .destination(texture)
                        .mask(PixelLayout.RGB, 1, 1)
                        .build()) {
            renderer.setView(view.x(), view.zoom());
            renderer.setStickers(sticker, view.anchorX(x, WIDTH), view.anchorY(y, HEIGHT));
            for (int i = 0; i < 4; ++i) {
                renderer.draw(frame, mask);
            }
        }
        return gl.read(texture, WIDTH, HEIGHT);
    }

    private static byte[] pixel(ByteBuffer pixels, float x, float y) {
        byte[] result = new byte[4];
        int index = Math.round(y * HEIGHT) * WIDTH + Math.round(x * WIDTH);
        for (int c = 0; c < result.length; ++c) {
            result[c] = pixels.get(4 * index + c);
        }
        return result;
    }

    /** The middles of the sticker's sides are near, those beyond them are not. */
    private void assertStickerAt(float x, float y) {
        float shown = (float) (1 / Math.tan(Math.toRadians(23.5)) / (3 - view.zoom() / 2));
        float halfWidth = 0.025F * shown;
        float halfHeight = 0.05F * shown;
        try (OffscreenContext gl = new OffscreenContext()) {
            ByteBuffer pixels = drawTouched(gl, x, y);
            for (int side = -1; side <= 1; side += 2) {
                assertArrayEquals(STICKER, pixel(pixels, x + 0.8F * side * halfWidth, y));
                assertArrayEquals(STICKER, pixel(pixels, x, y + 0.8F * side * halfHeight));
                assertEquals(-1, pixel(pixels, x + 1.2F * side * halfWidth, y)[0]);
                assertEquals(-1, pixel(pixels, x, y + 1.2F * side * halfHeight)[0]);
            }
        }
    }

    @Test
    public void stickersAppearWhereTheOutputWasTouched() {
        assertStickerAt(0.3F, 0.6F);
        view.zoomBy(1.5F);
        assertStickerAt(0.7F, 0.2F);
        view.drag(0.2F);
        assertStickerAt(0.5F, 0.5F);
    }

    /** The sticker is an anchor in the picture: where it is seen later tells how that moved. */
    @Test
    public void draggingMovesThePictureByThePartDragged() {
        view.zoomBy(1.5F);
        int before = view.anchorX(0.5F, WIDTH);
        view.drag(0.1F);
        assertEquals(before, view.anchorX(0.6F, WIDTH), 1);
    }
}
