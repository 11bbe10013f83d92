package org.vornrenderer;

import static org.junit.Assert.assertThrows;

import java.nio.ByteBuffer;
import org.junit.Test;

/** A platform that fails while a renderer is made: the exception comes through, nothing else. */
public class BrokenPlatformTest extends GlTest {
    @Test
    public void buildingFails() {
        VideoRenderer.Builder builder = builder(VideoSource.H264, 16, 16);
        for (int i = 0; i < 3; ++i) {
            assertThrows(RuntimeException.class, builder::build);
        }
        try (VideoRenderer renderer = builder(VideoSource.RGB, 4, 4).build()) {
            renderer.draw(ByteBuffer.allocateDirect(4 * 4 * 3));
        }
    }
}
