package org.vornrenderer;

import android.graphics.Bitmap;
import android.opengl.GLES20;
import java.awt.image.BufferedImage;
import java.io.File;
import java.io.IOException;
import java.nio.ByteBuffer;
import java.util.concurrent.CompletableFuture;
import java.util.function.Consumer;
import javax.imageio.ImageIO;

/** What is on the screen. */
final class Screens {
    static final int WIDTH = 320;
    static final int HEIGHT = 240;

    private Screens() {}

    /** All that the view of an activity shows, by what puts events on its GL thread. */
    static Bitmap of(Consumer<Runnable> glThread) throws Exception {
        CompletableFuture<Bitmap> taken = new CompletableFuture<>();
        glThread.accept(() -> taken.complete(read()));
        return taken.get();
    }

    /** GL's first row is at the bottom. */
    private static Bitmap read() {
        ByteBuffer pixels = ByteBuffer.allocateDirect(WIDTH * HEIGHT * 4);
        GLES20.glBindFramebuffer(GLES20.GL_FRAMEBUFFER, 0);
        for (int y = 0; y < HEIGHT; ++y) {
            ByteBuffer row = pixels.position((HEIGHT - 1 - y) * WIDTH * 4).slice();
            GLES20.glReadPixels(
                    0, y, WIDTH, 1, GLES20.GL_RGBA, GLES20.GL_UNSIGNED_BYTE, row);
        }
        Bitmap screen = Bitmap.createBitmap(WIDTH, HEIGHT, Bitmap.Config.ARGB_8888);
        screen.copyPixelsFromBuffer(pixels.rewind());
        return screen;
    }

    static void save(Bitmap picture, String file) throws IOException {
        int width = picture.getWidth();
        int height = picture.getHeight();
        BufferedImage image = new BufferedImage(width, height, BufferedImage.TYPE_INT_RGB);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                image.setRGB(x, y, picture.getPixel(x, y));
            }
        }
        ImageIO.write(image, "png", new File(file));
    }
}
