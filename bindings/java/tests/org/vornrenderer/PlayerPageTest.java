package org.vornrenderer;

import static org.junit.Assert.assertNull;

import android.app.Activities;
import android.app.Activity;
import android.graphics.Bitmap;
import android.net.Uri;
import android.view.View;
import java.io.File;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.LinkedBlockingQueue;
import org.junit.Test;

/** A player of the docs or the samples plays a clip. Its picture after a second is kept. */
public class PlayerPageTest {
    @Test
    public void plays() throws Exception {
        Activity player =
                (Activity)
                        Class.forName(System.getProperty("vorn.player", "MovieActivity"))
                                .getDeclaredConstructor()
                                .newInstance();
        Uri clip = Uri.fromFile(new File(System.getProperty("vorn.clip")));
        VideoPlayer view = (VideoPlayer) Activities.<View>start(player, clip);
        CountDownLatch second = new CountDownLatch(25);
        view.setFrameListener(timeUs -> second.countDown());
        second.await();
        BlockingQueue<Bitmap> taken = new LinkedBlockingQueue<>();
        view.capture(taken::add);
        Screens.save(taken.take(), "video-view.png");
        Activities.end(player); // Frees the decoder, and the picture with it.
        CompletableFuture<Bitmap> none = new CompletableFuture<>();
        view.capture(none::complete);
        assertNull(none.get());
    }
}
