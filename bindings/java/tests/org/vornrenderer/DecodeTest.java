package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;

import java.awt.Color;
import java.awt.Graphics;
import java.awt.image.BufferedImage;
import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.file.Files;
import java.nio.file.Path;
import javax.imageio.ImageIO;
import org.junit.Test;
import org.vornrenderer.offscreen.OffscreenContext;

/** Compressed units to pixels, through the platform's decoder. */
public class DecodeTest extends GlTest {
    private static final int WIDTH = 320;
    private static final int HEIGHT = 240;
    private static final int TOLERANCE = 4;
    private static final long PATIENCE_NS = 20_000_000_000L;

    private static ByteBuffer jpeg(Color left, Color right) throws IOException {
        BufferedImage image = new BufferedImage(WIDTH, HEIGHT, BufferedImage.TYPE_INT_RGB);
        Graphics graphics = image.getGraphics();
        graphics.setColor(left);
        graphics.fillRect(0, 0, WIDTH / 2, HEIGHT);
        graphics.setColor(right);
        graphics.fillRect(WIDTH / 2, 0, WIDTH / 2, HEIGHT);
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        assertTrue(ImageIO.write(image, "jpeg", bytes));
        return direct(bytes.toByteArray());
    }

    private static byte[] h264Unit() throws IOException {
        return Files.readAllBytes(Path.of(System.getProperty("vorn.unit")));
    }

    /** Draws until there is a picture. */
    private BufferedImage drawFirst(VideoRenderer renderer) {
        long end = System.nanoTime() + PATIENCE_NS;
        while (System.nanoTime() < end) {
            if (renderer.draw()) {
                return drawn(WIDTH, HEIGHT);
            }
        }
        throw new AssertionError("no picture came out");
    }

    private static void assertAbout(Color expected, Color color) {
        int error =
                Math.abs(expected.getRed() - color.getRed())
                        + Math.abs(expected.getGreen() - color.getGreen())
                        + Math.abs(expected.getBlue() - color.getBlue());
        assertTrue(color + ", not " + expected, error <= 3 * TOLERANCE && color.getAlpha() == 255);
    }

    @Test
    public void motionJpegThatIsMirrored() throws IOException {
        Color left = new Color(200, 80, 40);
        Color right = new Color(30, 60, 190);
        try (VideoRenderer renderer = builder(VideoSource.MJPEG, WIDTH, HEIGHT).build()) {
            renderer.queueUnit(ByteBuffer.allocateDirect(0));
            renderer.queueUnit(jpeg(left, right));
            BufferedImage image = drawFirst(renderer);
            assertAbout(left, pixel(image, WIDTH / 4, 10));
            assertAbout(right, pixel(image, 3 * WIDTH / 4, HEIGHT - 10));

            renderer.setMirrored(true);
            renderer.draw();
            assertAbout(right, pixel(drawn(WIDTH, HEIGHT), WIDTH / 4, HEIGHT / 2));
        }
    }

    @Test
    public void h264() throws IOException {
        byte[] unit = h264Unit();
        try (VideoRenderer renderer = builder(VideoSource.H264, WIDTH, HEIGHT).build()) {
            assertEquals(VideoRenderer.NO_TIME, renderer.pictureTimeUs());
            assertEquals(QueueResult.QUEUED, renderer.queueUnit(direct(unit), 40_000, 0));
            Color drawn = pixel(drawFirst(renderer), WIDTH / 4, HEIGHT / 2);
            assertEquals(200, drawn.getRed(), TOLERANCE);
            assertFalse(renderer.draw());
            assertEquals(40_000, renderer.pictureTimeUs());

            int capacity = (int) renderer.decoderState().unitCapacity;
            ByteBuffer large = ByteBuffer.allocateDirect(capacity + 1);
            assertEquals(QueueResult.TOO_LARGE, renderer.queueUnit(large, 0, 0));
            ByteBuffer empty = ByteBuffer.allocateDirect(0);
            assertEquals(
                    QueueResult.QUEUED, renderer.queueUnit(empty, 0, VideoRenderer.UNIT_END));
            assertThrows(
                    IllegalArgumentException.class,
                    () -> renderer.queueUnit(direct(unit), 0, 0));
            renderer.flush();
            assertEquals(QueueResult.QUEUED, renderer.queueUnit(direct(unit), 80_000, 0));

            DecoderState state = renderer.decoderState();
            assertEquals(3, state.unitsQueued);
            assertEquals(1, state.picturesShown);
        }
    }

    @Test
    public void framesAndUnitsThatAreRefused() {
        try (VideoRenderer renderer = builder(VideoSource.H264, WIDTH, HEIGHT).build()) {
            ByteBuffer bytes = ByteBuffer.allocateDirect(4);
            assertThrows(IllegalArgumentException.class, () -> renderer.draw(bytes));
            assertThrows(
                    IllegalArgumentException.class,
                    () -> renderer.queueUnit(ByteBuffer.allocate(4)));
            assertThrows(NullPointerException.class, () -> renderer.queueUnit(null));
        }
    }

    @Test
    public void decodersThatAreMissingOrFailInMidStream() throws IOException {
        NextDecoder.fails(NextDecoder.CREATE, 0, 0);
        VideoRenderer.Builder builder = builder(VideoSource.H264, WIDTH, HEIGHT);
        assertEquals(
                RendererException.Reason.NO_DECODER,
                assertThrows(RendererException.class, builder::build).reason());
        assertEquals(RendererException.Reason.DECODER_FAILED, failureAfterOnePicture(0));
        assertEquals(
                RendererException.Reason.DECODER_RECLAIMED,
                failureAfterOnePicture(NextDecoder.ERROR_RECLAIMED));
    }

    /** The picture before the failure goes on being drawn. */
    private RendererException.Reason failureAfterOnePicture(int error) throws IOException {
        ByteBuffer unit = direct(h264Unit());
        NextDecoder.fails(NextDecoder.ALL, error, 2);
        try (VideoRenderer renderer = builder(VideoSource.H264, WIDTH, HEIGHT).build()) {
            assertEquals(QueueResult.QUEUED, renderer.queueUnit(unit, 40_000, 0));
            drawFirst(renderer);
            long end = System.nanoTime() + PATIENCE_NS;
            while (renderer.queueUnit(unit, 80_000, 0) != QueueResult.FAILED) {
                assertTrue(System.nanoTime() < end);
            }
            renderer.draw();
            assertEquals(40_000, renderer.pictureTimeUs());
            RendererException.Reason reason = renderer.decoderState().failure;
            assertEquals(
                    reason, assertThrows(RendererException.class, renderer::flush).reason());
            return reason;
        }
    }

    @Test
    public void failuresOfThePlatformGiveTheReason() {
        try (VideoRenderer renderer = builder(VideoSource.MJPEG, WIDTH, HEIGHT).build()) {
            renderer.draw();
            try (OffscreenContext other = new OffscreenContext()) {
                other.setClearColor(0, 0, 0, 0);
                assertEquals(
                        RendererException.Reason.PLATFORM,
                        assertThrows(RendererException.class, renderer::draw).reason());
            }
        }
    }
}
