package org.vornrenderer;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;

import java.lang.management.ManagementFactory;
import java.nio.ByteBuffer;
import org.junit.Test;

/** From Java's buffers to the pixels of the destination. */
public class DrawTest extends GlTest {
    private static final int WIDTH = 83;
    private static final int HEIGHT = 62;

    private final Picture frame = Picture.patterned(WIDTH, HEIGHT, 1);

    /** Gives frame and mask often enough that both are what is drawn. */
    private void show(VideoRenderer renderer, ByteBuffer pixels, ByteBuffer mask) {
        for (int i = 0; i < 4; ++i) {
            renderer.draw(pixels, mask);
        }
    }

    @Test
    public void framesOfAnyWidthUnderAnyUnpackAlignment() {
        for (VideoSource source : new VideoSource[] {VideoSource.RGB, VideoSource.RGBA}) {
            gl.setUnpackAlignment(8);
            ByteBuffer pixels = frame.bytes(source.layout);
            int position = pixels.position();
            try (VideoRenderer renderer = builder(source, WIDTH, HEIGHT).build()) {
                show(renderer, pixels, null);
            }
            drawn(WIDTH, HEIGHT).assertShows(new Picture.Scene(frame));
            assertEquals(8, gl.getUnpackAlignment());
            assertEquals(position, pixels.position());
            assertEquals(pixels.capacity(), pixels.limit());
        }
    }

    @Test
    public void aDestinationInRgbHasNoAlpha() {
        Picture clear = Picture.flat(8, 8, 1, 2, 3, 0);
        VideoRenderer.Builder builder = builder(VideoSource.RGBA, 8, 8);
        try (VideoRenderer rgba = builder.build()) {
            show(rgba, clear.bytes(PixelLayout.RGBA), null);
            assertArrayEquals(new int[] {1, 2, 3, 0}, drawn(8, 8).at(4, 4));
        }
        try (VideoRenderer rgb = builder.destination(texture, PixelLayout.RGB).build()) {
            show(rgb, clear.bytes(PixelLayout.RGBA), null);
            assertArrayEquals(new int[] {1, 2, 3, 255}, drawn(8, 8).at(4, 4));
        }
    }

    @Test
    public void aCallDrawsTheFrameOfTheCallBefore() {
        Picture next = Picture.patterned(WIDTH, HEIGHT, 2);
        try (VideoRenderer renderer = builder(VideoSource.RGBA, WIDTH, HEIGHT).build()) {
            renderer.draw();
            renderer.draw(frame.bytes(PixelLayout.RGBA));
            renderer.draw(next.bytes(PixelLayout.RGBA));
            drawn(WIDTH, HEIGHT).assertShows(new Picture.Scene(frame));
            renderer.draw();
            drawn(WIDTH, HEIGHT).assertShows(new Picture.Scene(next));
        }
    }

    @Test
    public void masksOfBothLayoutsKeyAndTheViewMoves() {
        for (PixelLayout layout : PixelLayout.values()) {
            Picture.Scene scene = new Picture.Scene(frame);
            scene.mask = Picture.flat(7, 5, 0, 0, 1, layout == PixelLayout.RGB ? 255 : 90);
            scene.mask.set(3, 2, 0, 0, 0, 255);
            scene.viewX = 0.25F;
            scene.zoom = 1;
            scene.mirrored = true;
            scene.background = new int[] {0, 255, 0, 255};
            gl.setClearColor(0, 1, 0, 1);
            VideoRenderer.Builder builder =
                    builder(VideoSource.RGB, WIDTH, HEIGHT).mask(layout, 7, 5);
            try (VideoRenderer renderer = builder.build()) {
                renderer.setView(0.25F, 1);
                renderer.setMirrored(true);
                show(renderer, frame.bytes(PixelLayout.RGB), scene.mask.bytes(layout));
                drawn(WIDTH, HEIGHT).assertShows(scene);
            }
        }
    }

    @Test
    public void stickersAtEachPositionUntilCleared() {
        Picture.Scene scene = new Picture.Scene(frame);
        scene.sticker = Picture.flat(1, 1, 10, 20, 30, 40);
        scene.stickers = new int[] {20, 30, 60, 50};
        int sticker = gl.newTexture();
        gl.fill(sticker, 1, 1, scene.sticker.bytes(PixelLayout.RGBA).slice());
        try (VideoRenderer renderer = builder(VideoSource.RGBA, WIDTH, HEIGHT).build()) {
            int[] given = {20, 30, VideoRenderer.HIDDEN, VideoRenderer.HIDDEN, 60, 50};
            renderer.setStickers(sticker, given);
            given[0] = 70;
            show(renderer, frame.bytes(PixelLayout.RGBA), null);
            drawn(WIDTH, HEIGHT).assertShows(scene);

            renderer.clearStickers();
            renderer.draw();
            drawn(WIDTH, HEIGHT).assertShows(new Picture.Scene(frame));
        }
    }

    @Test
    public void framesAllocateNothing() {
        ByteBuffer pixels = frame.bytes(PixelLayout.RGBA);
        ByteBuffer mask = Picture.flat(1, 1, 255, 255, 255, 255).bytes(PixelLayout.RGB);
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
