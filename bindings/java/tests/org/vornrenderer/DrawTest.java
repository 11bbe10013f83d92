package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import java.awt.Color;
import java.awt.image.BufferedImage;
import java.lang.management.ManagementFactory;
import java.nio.ByteBuffer;
import org.junit.Test;

/** From Java's buffers to the pixels of the destination. */
public class DrawTest extends GlTest {
    private static final int WIDTH = 83;
    private static final int HEIGHT = 62;
    private static final Color LEFT = new Color(200, 80, 41);
    private static final Color RIGHT = new Color(30, 60, 190);

    private static ByteBuffer frame(PixelLayout layout) {
        return halves(layout, WIDTH, HEIGHT, LEFT, RIGHT);
    }

    /** Gives frame and mask often enough that both are what is drawn. */
    private static void show(VideoRenderer renderer, ByteBuffer frame, ByteBuffer mask) {
        for (int i = 0; i < 4; ++i) {
            renderer.draw(frame, mask);
        }
    }

    private void assertHalves(Color left, Color right) {
        BufferedImage image = drawn(WIDTH, HEIGHT);
        for (int y = 10; y < HEIGHT - 10; ++y) {
            assertEquals(left, pixel(image, WIDTH / 2 - 5, y));
            assertEquals(right, pixel(image, WIDTH / 2 + 5, y));
        }
    }

    @Test
    public void framesOfAnyWidthUnderAnyUnpackAlignment() {
        for (VideoSource source : new VideoSource[] {VideoSource.RGB, VideoSource.RGBA}) {
            gl.setUnpackAlignment(8);
            ByteBuffer pixels = frame(source.layout);
            int position = pixels.position();
            try (VideoRenderer renderer = builder(source, WIDTH, HEIGHT).build()) {
                show(renderer, pixels, null);
            }
            assertHalves(LEFT, RIGHT);
            assertEquals(8, gl.getUnpackAlignment());
            assertEquals(position, pixels.position());
            assertEquals(pixels.capacity(), pixels.limit());
        }
    }

    @Test
    public void picturesAreTurnedInAnOutputOfAnotherSize() {
        VideoRenderer.Builder builder = builder(VideoSource.RGB, WIDTH, HEIGHT).outputSize(40, 60);
        try (VideoRenderer renderer = builder.build()) {
            renderer.setRotation(90); // The left half comes to the top.
            renderer.draw(frame(PixelLayout.RGB));
            BufferedImage image = drawn(renderer.outputWidth(), renderer.outputHeight());
            assertEquals(LEFT, pixel(image, 35, 20));
            assertEquals(RIGHT, pixel(image, 5, 40));
        }
    }

    @Test
    public void aRendererKeepsWhatItWasBuiltWith() {
        VideoRenderer.Builder builder =
                builder(VideoSource.RGB, 8, 4).mask(PixelLayout.RGBA, 3, 2).keepState(false);
        try (VideoRenderer first = builder.build();
                VideoRenderer second = builder.drawLater().mask(PixelLayout.RGB, 7, 6).build()) {
            assertEquals(texture, first.destination());
            assertEquals(PixelLayout.RGBA, first.destinationLayout());
            assertEquals(PixelLayout.RGBA, first.maskLayout());
            assertEquals(3 * 100 + 2, first.maskWidth() * 100 + first.maskHeight());
            assertFalse(first.drawsLater() || first.keepsState());
            assertTrue(second.drawsLater());
            assertEquals(6, second.maskHeight());
        }
    }

    @Test
    public void aFrameThatIsDrawnOnceIsNotDrawnAgain() {
        VideoRenderer.Builder builder = builder(VideoSource.RGBA, 8, 8).drawLater().drawOnce();
        try (VideoRenderer renderer = builder.build()) {
            assertTrue(renderer.drawsOnce() && !renderer.drawsLater());
            Color color = new Color(10, 200, 30, 40);
            assertTrue(renderer.draw(flat(PixelLayout.RGBA, 8, 8, color)));
            renderer.setMirrored(true);
            renderer.setView(0, 0, 3);
            assertFalse(renderer.draw());
            assertEquals(color, pixel(drawn(8, 8), 0, 0));
        }
    }

    @Test
    public void aDestinationInRgbHasNoAlpha() {
        Color clear = new Color(1, 2, 3, 0);
        VideoRenderer.Builder builder = builder(VideoSource.RGBA, 8, 8);
        try (VideoRenderer rgb = builder.destination(texture, PixelLayout.RGB).build()) {
            show(rgb, flat(PixelLayout.RGBA, 8, 8, clear), null);
            assertEquals(new Color(1, 2, 3, 255), pixel(drawn(8, 8), 4, 4));
        }
    }

    @Test
    public void masksOfBothLayoutsKeyAndTheViewMoves() {
        Color background = Color.GREEN;
        gl.setClearColor(0, 1, 0, 1);
        for (PixelLayout layout : PixelLayout.values()) {
            int alpha = layout == PixelLayout.RGB ? 255 : 90;
            ByteBuffer mask = halves(layout, 6, 5, Color.BLACK, new Color(0, 0, 1, alpha));
            VideoRenderer.Builder builder =
                    builder(VideoSource.RGB, WIDTH, HEIGHT).mask(layout, 6, 5);
            try (VideoRenderer renderer = builder.build()) {
                renderer.setMirrored(true);
                show(renderer, frame(PixelLayout.RGB), mask);
                Color key = new Color(169, 210, 216, 0);
                // Mirrored, the frame's left half is the right one, which the mask lets pass.
                Color passed = new Color(LEFT.getRed(), LEFT.getGreen(), LEFT.getBlue(), alpha);
                assertHalves(key, passed);

                // 92 % of the size, an eighth to the left of that.
                renderer.setView(0.25F, 1);
                renderer.draw(null, mask);
                BufferedImage image = drawn(WIDTH, HEIGHT);
                assertEquals(background, pixel(image, WIDTH / 4, 1));
                assertEquals(key, pixel(image, WIDTH / 4, 4));
                assertEquals(passed, pixel(image, WIDTH / 2, HEIGHT / 2));
                assertEquals(passed, pixel(image, 69, HEIGHT / 2));
                assertEquals(background, pixel(image, 71, HEIGHT / 2));
            }
        }
    }

    @Test
    public void texturesUnderMaskTextures() {
        int picture = gl.newTexture();
        int mask = gl.newTexture();
        gl.fill(picture, WIDTH, HEIGHT, frame(PixelLayout.RGBA).slice());
        gl.fill(mask, 2, 1, halves(PixelLayout.RGBA, 2, 1, Color.BLACK, Color.WHITE).slice());
        Color key = new Color(169, 210, 216, 0);
        float[] swapped = {-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 1, 1, 0, 1}; // Columns.
        try (VideoRenderer renderer = builder(VideoSource.TEXTURE_2D, WIDTH, HEIGHT).build()) {
            renderer.drawTexture(picture, null);
            assertHalves(LEFT, RIGHT);
            renderer.setMaskTexture(mask);
            renderer.drawTexture(picture, swapped);
            assertHalves(key, LEFT);
            renderer.setMaskHidden(true);
            renderer.drawTexture(picture, swapped);
            assertHalves(RIGHT, LEFT);
            renderer.setMaskHidden(false);
            assertFalse(renderer.isMaskHidden());
            renderer.drawTexture(picture, null);
            assertHalves(key, RIGHT);
        }
        try (VideoRenderer renderer =
                builder(VideoSource.RGB, WIDTH, HEIGHT)
                        .mask(PixelLayout.RGB, 1, 1)
                        .build()) {
            renderer.setView(0, VideoRenderer.ZOOM_FIT);
            renderer.setMaskTexture(mask);
            renderer.draw(frame(PixelLayout.RGB));
            assertHalves(key, RIGHT);
            renderer.draw(null, flat(PixelLayout.RGB, 1, 1, Color.WHITE));
            assertHalves(LEFT, RIGHT);
        }
    }

    @Test
    public void stickersAtEachPositionUntilCleared() {
        Color color = new Color(10, 20, 30, 40);
        int sticker = gl.newTexture();
        gl.fill(sticker, 1, 1, flat(PixelLayout.RGBA, 1, 1, color).slice());
        VideoRenderer.Builder builder = builder(VideoSource.RGBA, 200, 100);
        try (VideoRenderer renderer = builder.build()) {
            // The middle of a sticker lies 15 rows before its position.
            int[] given = {100, 65, VideoRenderer.HIDDEN, VideoRenderer.HIDDEN, 60, 65};
            renderer.setStickers(sticker, given);
            given[0] = 70;
            assertEquals(100, renderer.stickers()[0]);
            renderer.draw(flat(PixelLayout.RGBA, 200, 100, Color.RED));
            BufferedImage image = drawn(200, 100);
            assertEquals(color, pixel(image, 100, 50));
            assertEquals(color, pixel(image, 60, 50));
            assertEquals(Color.RED, pixel(image, 77, 50));

            renderer.clearStickers();
            renderer.setView(0, 0.5F, VideoRenderer.ZOOM_FIT); // A quarter towards the first row.
            renderer.draw();
            image = drawn(200, 100);
            assertEquals(Color.RED, pixel(image, 100, 72));
            assertEquals(0, pixel(image, 100, 78).getAlpha());
        }
    }

    @Test
    public void framesAllocateNothing() {
        ByteBuffer pixels = frame(PixelLayout.RGBA);
        ByteBuffer mask = flat(PixelLayout.RGB, 1, 1, Color.WHITE);
        int[] positions = {20, 30};
        int sticker = gl.newTexture();
        com.sun.management.ThreadMXBean threads =
                (com.sun.management.ThreadMXBean) ManagementFactory.getThreadMXBean();
        long self = Thread.currentThread().getId();
        VideoRenderer.Builder builder =
                builder(VideoSource.RGBA, WIDTH, HEIGHT).mask(PixelLayout.RGB, 1, 1);
        try (VideoRenderer renderer = builder.build()) {
            long before = 0;
            for (int i = 0; i < 40; ++i) {
                if (i == 20) { // All classes are loaded, all methods linked.
                    before = threads.getThreadAllocatedBytes(self);
                }
                positions[0] = i;
                renderer.setStickers(sticker, positions);
                renderer.setView(i, 2);
                renderer.draw(pixels, mask);
            }
            long call = -threads.getThreadAllocatedBytes(self);
            call += threads.getThreadAllocatedBytes(self); // What asking itself takes.
            long allocated = threads.getThreadAllocatedBytes(self) - before - 3 * call;
            assertEquals(0, Math.max(0, allocated));
        }
    }
}
