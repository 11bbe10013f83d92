package org.vornrenderer;

import org.junit.After;
import org.junit.Before;
import org.vornrenderer.offscreen.OffscreenContext;

/** A GL context and a destination for each test. */
public abstract class GlTest {
    OffscreenContext gl;
    int texture;

    @Before
    public void openContext() {
        gl = new OffscreenContext();
        texture = gl.newTexture();
    }

    @After
    public void closeContext() {
        gl.close();
    }

    VideoRenderer.Builder builder(VideoSource source, int width, int height) {
        return new VideoRenderer.Builder(source, width, height).destination(texture);
    }

    Picture drawn(int width, int height) {
        return Picture.of(width, height, gl.read(texture, width, height));
    }
}
