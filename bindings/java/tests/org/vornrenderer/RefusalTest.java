package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;

import java.nio.ByteBuffer;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.TimeUnit;
import java.util.logging.LogRecord;
import java.util.logging.Logger;
import org.junit.Test;

/** Bad calls throw exceptions and leave the renderer as it was. */
public class RefusalTest extends GlTest {
    private static void refused(String message, Class<? extends Throwable> type, Runnable call) {
        assertEquals(message, assertThrows(type, call::run).getMessage());
    }

    private static void badArgument(String message, Runnable call) {
        refused(message, IllegalArgumentException.class, call);
    }

    private static void badState(String message, Runnable call) {
        refused(message, IllegalStateException.class, call);
    }

    @Test
    public void descriptions() {
        badArgument("no picture is 0 x 1", () -> builder(VideoSource.RGB, 0, 1));
        badArgument(
                "32768 x 16384 RGBA does not fit a buffer",
                () -> builder(VideoSource.RGBA, 32768, 16384));
        badArgument(
                "2147483647 x 2147483647 RGB does not fit a buffer",
                () -> builder(VideoSource.RGBA, 1, 1)
                        .mask(PixelLayout.RGB, Integer.MAX_VALUE, Integer.MAX_VALUE));
        badArgument("0 is not a texture", () -> builder(VideoSource.RGB, 1, 1).destination(0));
        badState(
                "the renderer has no destination",
                () -> new VideoRenderer.Builder(VideoSource.RGB, 1, 1).build());
        refused(
                "the picture is larger than GL allows",
                RendererException.class,
                () -> builder(VideoSource.RGB, 1 << 20, 1).build());
    }

    @Test
    public void buffersThatAreNotThePicture() {
        ByteBuffer right = ByteBuffer.allocateDirect(4 * 4 * 4);
        ByteBuffer late = right.duplicate();
        late.position(1);
        ByteBuffer early = right.duplicate();
        early.limit(right.capacity() - 1);
        try (VideoRenderer renderer = builder(VideoSource.RGBA, 4, 4).build()) {
            badArgument("the frame has 63 bytes, not 64", () -> renderer.draw(late));
            badArgument("the frame has 63 bytes, not 64", () -> renderer.draw(early));
            badArgument(
                    "the frame has 65 bytes, not 64",
                    () -> renderer.draw(ByteBuffer.allocateDirect(65)));
            badArgument(
                    "the frame is not in a direct buffer",
                    () -> renderer.draw(ByteBuffer.allocate(64)));
            badArgument("the renderer takes no mask", () -> renderer.draw(right, right));
            badState("a renderer of RGBA takes no units", () -> renderer.queueUnit(right));
            renderer.draw(right.asReadOnlyBuffer());
        }
        VideoRenderer.Builder masked = builder(VideoSource.RGBA, 4, 4).mask(PixelLayout.RGB, 4, 4);
        try (VideoRenderer renderer = masked.build()) {
            badArgument("the mask has 64 bytes, not 48", () -> renderer.draw(right, right));
        }
    }

    @Test
    public void stickersAndViews() {
        VideoRenderer.Builder masked = builder(VideoSource.RGB, 4, 4).mask(PixelLayout.RGB, 1, 1);
        try (VideoRenderer renderer = masked.build()) {
            badArgument("3 numbers are no pairs", () -> renderer.setStickers(1, 1, 2, 3));
            badArgument("-1 is not a texture", () -> renderer.setStickers(-1, 1, 2));
            assertThrows(NullPointerException.class, () -> renderer.setStickers(1, (int[]) null));
            badArgument("0 is not a texture", () -> renderer.setMaskTexture(0));
            badArgument(
                    "a renderer of RGB draws no textures", () -> renderer.drawTexture(1, null));
            badArgument(
                    "a matrix has 16 values, not 9", () -> renderer.drawTexture(1, new float[9]));
            badArgument("pictures are not turned by 45", () -> renderer.setRotation(45));
            badArgument("no view is at NaN, 0.0, zoom 2.0", () -> renderer.setView(Float.NaN, 2));
            badArgument(
                    "no view is at 0.0, 1.0, zoom 6.0", () -> renderer.setView(0, 1, 6));
        }
    }

    private static void everyCallIsRefused(String message, VideoRenderer renderer) {
        badState(message, renderer::draw);
        badState(message, () -> renderer.queueUnit(ByteBuffer.allocateDirect(1)));
        badState(message, () -> renderer.setMirrored(true));
        badState(message, () -> renderer.setStickers(1, 2, 3));
        badState(message, renderer::clearStickers);
        badState(message, () -> renderer.setMaskTexture(1));
        badState(message, () -> renderer.setMaskHidden(true));
        badState(message, () -> renderer.drawTexture(1, null));
        badState(message, renderer::pictureTimeUs);
        badState(message, () -> renderer.setView(0, 2));
    }

    @Test
    public void everyCallAfterClose() {
        VideoRenderer renderer = builder(VideoSource.RGB, 4, 4).build();
        renderer.close();
        renderer.close();
        everyCallIsRefused("the renderer is closed", renderer);
    }

    @Test
    public void everyCallFromAnotherThread() throws InterruptedException {
        VideoRenderer renderer = builder(VideoSource.RGB, 4, 4).build();
        String elsewhere = "the renderer belongs to main, not to other";
        Throwable[] failure = new Throwable[1];
        Runnable calls =
                () -> {
                    everyCallIsRefused(elsewhere, renderer);
                    badState(elsewhere, renderer::close);
                };
        Thread other = new Thread(calls, "other");
        other.setUncaughtExceptionHandler((thread, error) -> failure[0] = error);
        other.start();
        other.join();
        assertEquals(null, failure[0]);
        renderer.draw();
        renderer.close();
    }

    @Test
    public void aRendererThatWasForgottenIsReportedAndAClosedOneIsNot() throws Exception {
        BlockingQueue<LogRecord> records = new LinkedBlockingQueue<>();
        Logger logger = Logger.getLogger("org.vornrenderer");
        logger.setFilter(record -> !records.add(record));
        builder(VideoSource.RGB, 4, 4).build().close();
        forget();
        LogRecord record = null;
        for (int i = 0; i < 200 && record == null; ++i) {
            System.gc();
            record = records.poll(100, TimeUnit.MILLISECONDS);
        }
        boolean named = false;
        for (StackTraceElement call : record.getThrown().getStackTrace()) {
            named |= call.getMethodName().equals("forget");
        }
        assertTrue(named);
        assertEquals(null, records.poll());
    }

    private void forget() {
        NativeRenderer.destroy(builder(VideoSource.RGB, 4, 4).build().handle(), false);
    }

    @Test
    public void withoutContextRenderersAreClosedButNotBuilt() {
        VideoRenderer first = builder(VideoSource.RGB, 4, 4).build();
        VideoRenderer second = builder(VideoSource.RGB, 4, 4).build();
        gl.close();
        first.close();
        second.closeAfterContextLoss();
        refused(
                "no GL context is current",
                RendererException.class,
                () -> builder(VideoSource.RGB, 4, 4).build());
    }
}
