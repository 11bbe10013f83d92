package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertThrows;

import java.nio.ByteBuffer;
import org.junit.Test;

/** Where Android's classes are missing or fail, raw frames are still drawn. */
public class PlatformTest extends GlTest {
    @Test
    public void compressedVideoIsRefused() {
        String expected = System.getProperty("vorn.expected");
        VideoRenderer.Builder builder = builder(VideoSource.H264, 16, 16);
        for (int i = 0; i < 3; ++i) {
            RendererException thrown = assertThrows(RendererException.class, builder::build);
            assertEquals(expected, thrown.reason().name());
        }
        try (VideoRenderer renderer = builder(VideoSource.RGB, 4, 4).build()) {
            renderer.draw(ByteBuffer.allocateDirect(4 * 4 * 3));
        }
    }
}
