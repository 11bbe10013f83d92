package org.vornrenderer;

import java.awt.Color;
import java.awt.image.BufferedImage;
import java.nio.ByteBuffer;
import org.junit.After;
import org.junit.Before;
import org.vornrenderer.offscreen.OffscreenContext;

/** A GL context and a destination for each test. */
public abstract class GlTest {
    protected OffscreenContext gl;
    protected int texture;

    @Before
    public void openContext() {
        gl = new OffscreenContext();
        texture = gl.newTexture();
    }

    @After
    public void closeContext() {
        gl.close();
    }

    protected VideoRenderer.Builder builder(VideoSource source, int width, int height) {
        return new VideoRenderer.Builder(source, width, height).destination(texture);
    }

    protected BufferedImage drawn(int width, int height) {
        return gl.readImage(texture, width, height);
    }

    protected static Color pixel(BufferedImage image, int x, int y) {
        return new Color(image.getRGB(x, y), true);
    }

    /** A direct buffer that ends with the last byte, and begins some bytes before the first. */
    protected static ByteBuffer direct(byte... bytes) {
        int offset = 5;
        ByteBuffer buffer = ByteBuffer.allocateDirect(offset + bytes.length);
        buffer.position(offset).mark();
        buffer.put(bytes).reset();
        return buffer;
    }

    /** A picture whose left half has one color and whose right half has another. */
    protected static ByteBuffer halves(
            PixelLayout layout, int width, int height, Color left, Color right) {
        byte[] bytes = new byte[layout.bytes(width, height)];
        for (int i = 0; i < bytes.length; ++i) {
            int column = i / layout.bytesPerPixel % width;
            Color color = column < width / 2 ? left : right;
            int[] channels = {color.getRed(), color.getGreen(), color.getBlue(), color.getAlpha()};
            bytes[i] = (byte) channels[i % layout.bytesPerPixel];
        }
        return direct(bytes);
    }

    protected static ByteBuffer flat(PixelLayout layout, int width, int height, Color color) {
        return halves(layout, width, height, color, color);
    }
}
