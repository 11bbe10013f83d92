package org.vornrenderer;

import static org.junit.Assert.assertNull;

import android.app.Activities;
import android.app.Activity;
import android.graphics.Bitmap;
import android.net.Uri;
import java.awt.image.BufferedImage;
import java.io.File;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.LinkedBlockingQueue;
import javax.imageio.ImageIO;
import org.junit.Test;

/** The player of the docs plays a clip. Its picture after a second is kept. */
public class PlayerPageTest {
    @Test
    public void plays() throws Exception {
        Activity player =
                (Activity) Class.forName("MovieActivity").getDeclaredConstructor().newInstance();
        Uri clip = Uri.fromFile(new File(System.getProperty("vorn.clip")));
        VornVideoView view = (VornVideoView) Activities.start(player, clip);
        CountDownLatch second = new CountDownLatch(25);
        view.setFrameListener(timeUs -> second.countDown());
        second.await();
        BlockingQueue<Bitmap> taken = new LinkedBlockingQueue<>();
        view.capture(taken::add);
        save(taken.take());
        Activities.pause(player); // Frees the decoder, and the picture with it.
        CompletableFuture<Bitmap> none = new CompletableFuture<>();
        view.capture(none::complete);
        assertNull(none.get());
    }

    private static void save(Bitmap picture) throws Exception {
        BufferedImage image =
                new BufferedImage(
                        picture.getWidth(), picture.getHeight(), BufferedImage.TYPE_INT_RGB);
        for (int y = 0; y < picture.getHeight(); ++y) {
            for (int x = 0; x < picture.getWidth(); ++x) {
                image.setRGB(x, y, picture.getPixel(x, y));
            }
        }
        ImageIO.write(image, "png", new File("video-view.png"));
    }
}
