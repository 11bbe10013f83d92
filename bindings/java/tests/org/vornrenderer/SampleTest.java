package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNotNull;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertTrue;

import android.app.Activities;
import android.app.Activity;
import android.graphics.Bitmap;
import android.hardware.camera2.Cameras;
import android.net.Uri;
import android.opengl.GLSurfaceView;
import android.view.MotionEvent;
import android.view.View;
import android.widget.Toasts;
import java.io.File;
import java.lang.reflect.Method;
import java.nio.ByteBuffer;
import java.util.concurrent.CountDownLatch;
import org.junit.After;
import org.junit.Test;

/** The screens of the sample and the ten steps of the docs. What camera and stickers show is kept. */
public class SampleTest {
    private static final String SAMPLE = "org.vornrenderer.sample.";
    private static final int CAMERA_WIDTH = 1280;
    private static final int CAMERA_HEIGHT = 720;

    private Activity activity;

    private <T extends View> T start(String name) throws ReflectiveOperationException {
        Class<?> type = Class.forName(name);
        activity = (Activity) type.getDeclaredConstructor().newInstance();
        return Activities.start(activity, null);
    }

    @After
    public void end() {
        Activities.end(activity);
    }

    private <T extends View> T find(String name) {
        String owner = activity.getPackageName();
        return activity.findViewById(activity.getResources().getIdentifier(name, "id", owner));
    }

    @Test
    public void leadsToThreeScreens() throws Exception {
        start(SAMPLE + "StartActivity");
        for (String button : new String[] {"file", "camera", "stickers"}) {
            assertTrue(button, find(button).performClick());
        }
        assertNotNull(Activities.started(activity));
    }

    @Test
    public void playsTheFileThatIsPicked() throws Exception {
        start(SAMPLE + "PlayerActivity");
        find("open").performClick();
        assertNotNull(Activities.started(activity));
        View view = find("video");
        CountDownLatch second = new CountDownLatch(25);
        ((VornVideoView) view).setFrameListener(timeUs -> second.countDown());
        File clip = new File(System.getProperty("vorn.clip"));
        Activities.pick(activity, Uri.fromFile(clip));
        find("mirror").performClick();
        second.await();
        Activities.pick(activity, Uri.fromFile(new File(clip.getParent(), "text.mp4")));
        String message = Toasts.next();
        assertTrue(message, message.startsWith("Cannot show this: "));
    }

    @Test
    public void showsTheCameraThroughAnOval() throws Exception {
        VornVideoView view = start(SAMPLE + "CameraActivity");
        CountDownLatch shown = new CountDownLatch(1);
        view.setFrameListener(timeUs -> shown.countDown());
        Producer.post(Cameras.target(), street(), 0);
        shown.await();
        Bitmap screen = Screens.of(view::queueEvent);
        assertEquals(0xFF000000, screen.getPixel(2, 2));
        assertEquals(0xFF, screen.getPixel(Screens.WIDTH / 2, Screens.HEIGHT / 4) & 0xFF, 40);
        Screens.save(screen, "view-camera.png");
        Activities.end(activity);
        assertNull(Cameras.target());
    }

    /** Sky over a street with lanes. */
    private static ByteBuffer street() {
        ByteBuffer pixels = ByteBuffer.allocateDirect(CAMERA_WIDTH * CAMERA_HEIGHT * 4);
        for (int y = 0; y < CAMERA_HEIGHT; ++y) {
            int below = y - CAMERA_HEIGHT / 2;
            for (int x = 0; x < CAMERA_WIDTH; ++x) {
                boolean lane = Math.abs(x - CAMERA_WIDTH / 2) * 8 < below;
                boolean grass = Math.abs(x - CAMERA_WIDTH / 2) > below * 2;
                int color = below < 0 ? 0x90C0F0FF : lane ? 0xF0F0E0FF : grass ? 0x509040FF : 0x606468FF;
                pixels.putInt(color);
            }
        }
        return pixels.rewind();
    }

    @Test
    public void stickersFollowTheFinger() throws Exception {
        VornTextureView view = start(SAMPLE + "StickerActivity");
        Sticker balloon = view.stickerAt(144, 128);
        touch(view, 0, MotionEvent.ACTION_DOWN, 144, 128);
        touch(view, 10, MotionEvent.ACTION_MOVE, 164, 158);
        touch(view, 20, MotionEvent.ACTION_UP, 164, 158);
        assertEquals(164, balloon.x(), 0);
        Bitmap screen = Screens.of(view::queueEvent);
        while (screen.getPixel(164, 158) != 0xFFF0C020 // Until both are drawn, in any order.
                || Math.abs((screen.getPixel(Screens.WIDTH - 3, 2) & 0xFF) - 0xC0) > 8) {
            Thread.sleep(20);
            screen = Screens.of(view::queueEvent);
        }
        Screens.save(screen, "view-stickers.png");
    }

    @Test
    public void thePageDecoratesAPhoto() throws Exception {
        VornTextureView view = start(SAMPLE + "StickerActivity");
        view.clearStickers();
        Bitmap one = Bitmap.createBitmap(1, 1, Bitmap.Config.ARGB_8888);
        one.setPixel(0, 0, 0xFF0080FF);
        Bitmap white = one.copy(Bitmap.Config.ARGB_8888, true);
        white.setPixel(0, 0, 0xFFFFFFFF);
        Method apply =
                Class.forName("Decorations")
                        .getDeclaredMethod(
                                "apply", VideoPlayer.class, Bitmap.class, Bitmap.class, Bitmap.class);
        apply.setAccessible(true);
        apply.invoke(null, view, one, white, white);
        assertNotNull(view.stickerAt(200, 80));
        int color = 0;
        while (color != 0xFF0080FF) { // Until the photo is drawn.
            Thread.sleep(20);
            color = Screens.of(view::queueEvent).getPixel(Screens.WIDTH / 2, Screens.HEIGHT / 2);
        }
    }

    @Test
    public void tenStepsDrawFrames() throws Exception {
        GLSurfaceView view = start("MainActivity");
        int color = 0;
        while ((color & 0xFF) == 0) { // Until a frame is drawn.
            Thread.sleep(20);
            color = Screens.of(view::queueEvent).getPixel(Screens.WIDTH / 2, Screens.HEIGHT / 4);
        }
        assertEquals(0x80, color & 0xFF);
        assertEquals(Screens.HEIGHT / 2, color >> 8 & 0xFF, 2); // The frame is twice as high.
    }

    private static void touch(View view, long timeMs, int action, float x, float y) {
        view.onTouchEvent(MotionEvent.obtain(0, timeMs, action, x, y, 0));
    }
}
