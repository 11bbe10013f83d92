package org.vornrenderer;

import static org.junit.Assert.assertThrows;

import java.nio.ByteBuffer;
import org.junit.Test;

/** On a Java platform without Android's classes raw frames are drawn all the same. */
public class NoPlatformTest extends GlTest {
    @Test
    public void compressedVideoIsRefused() {
        VideoRenderer.Builder builder = builder(VideoSource.H264, 4, 4);
        assertThrows(UnsupportedOperationException.class, builder::build);
        try (VideoRenderer renderer = builder(VideoSource.RGB, 4, 4).build()) {
            renderer.draw(ByteBuffer.allocateDirect(4 * 4 * 3));
        }
    }
}
