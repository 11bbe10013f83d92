package org.vornrenderer;

import static org.junit.Assert.assertThrows;

import java.nio.ByteBuffer;
import org.junit.Test;

/** Where Android's classes are missing or fail, raw frames are still drawn. */
public class PlatformTest extends GlTest {
    @Test
    public void compressedVideoIsRefused() throws ClassNotFoundException {
        Class<? extends Throwable> expected =
                Class.forName(System.getProperty("vorn.expected")).asSubclass(Throwable.class);
        VideoRenderer.Builder builder = builder(VideoSource.H264, 16, 16);
        for (int i = 0; i < 3; ++i) {
            assertThrows(expected, builder::build);
        }
        try (VideoRenderer renderer = builder(VideoSource.RGB, 4, 4).build()) {
            renderer.draw(ByteBuffer.allocateDirect(4 * 4 * 3));
        }
    }
}
