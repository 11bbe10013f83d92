package org.vornrenderer;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import android.content.Context;
import android.graphics.Bitmap;
import android.opengl.GlThreads;
import android.util.AttributeSet;
import android.view.KeyEvent;
import android.view.MotionEvent;
import android.view.Pinch;
import android.view.Windows;
import android.view.accessibility.AccessibilityNodeInfo;
import java.io.File;
import java.io.FileInputStream;
import java.io.IOException;
import java.lang.management.ManagementFactory;
import java.nio.ByteBuffer;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import java.util.function.BiFunction;
import org.junit.Test;

/** How both views play clips. */
public class VideoPlayerTest extends ViewFixture {
    public VideoPlayerTest(String name, BiFunction<Context, AttributeSet, VideoPlayer> make) {
        super(make);
    }

    @Test
    public void showsEachPictureAtItsTimeWithoutGarbage() throws InterruptedException {
        com.sun.management.ThreadMXBean threads =
                (com.sun.management.ThreadMXBean) ManagementFactory.getThreadMXBean();
        ByteBuffer row = ByteBuffer.allocateDirect(4 * WIDTH);
        int[] shown = new int[LAST + 2];
        long[] times = new long[LAST + 2];
        long[] allocated = new long[LAST + 2];
        int[] count = new int[1];
        CountDownLatch begun = new CountDownLatch(1);
        view.setFirstFrameListener(begun::countDown);
        view.setFrameListener(
                timeUs -> {
                    int i = count[0]++;
                    shown[i] = numberOnScreen(row);
                    times[i] = timeUs;
                    allocated[i] = threads.getThreadAllocatedBytes(Thread.currentThread().getId());
                });
        long start = System.nanoTime();
        view.play(clip("bars.mp4"));
        assertTrue(begun.await(PATIENCE_S, TimeUnit.SECONDS));
        assertTrue(end.await(PATIENCE_S, TimeUnit.SECONDS));
        long tookUs = (System.nanoTime() - start) / 1000;

        for (int i = 0; i < count[0]; ++i) {
            assertEquals(times[i], (long) shown[i] * FRAME_US);
            assertTrue(i == 0 || shown[i] > shown[i - 1]);
        }
        assertEquals(LAST, shown[count[0] - 1]);
        assertTrue(tookUs + " us", tookUs >= (LAST - 2) * FRAME_US);
        assertEquals((LAST + 1L) * FRAME_US, view.durationUs());
        int clean = 0;
        for (int i = 1; i < count[0]; ++i) {
            clean += allocated[i] == allocated[i - 1] ? 1 : 0;
        }
        assertTrue(clean + " of " + count[0], clean > count[0] * 9 / 10);
    }

    @Test
    public void pausesSeeksAndCaptures() throws Exception {
        view.play(clip("bars.mp4"));
        awaitPicture(5);
        press(KeyEvent.KEYCODE_SPACE); // Pauses.
        view.seekTo(110L * FRAME_US);
        awaitPicture(100); // On the way.
        assertTrue(view.positionUs() >= 110L * FRAME_US);
        awaitPicture(110);
        Still still = settled();
        assertEquals(110, still.number, OVERSHOOT);
        assertEquals(still.position, still.number);
        view.setMirrored(true);
        view.seekTo(0);
        awaitPicture(0);
        assertEquals(0, settled().position, OVERSHOOT);
        view.setMirrored(false);
        press(KeyEvent.KEYCODE_SPACE);
        awaitPicture(3);
        press(KeyEvent.KEYCODE_DPAD_RIGHT); // By 5 s.
        awaitPicture(126);
        assertTrue(end.await(PATIENCE_S, TimeUnit.SECONDS));
        view.resume(); // From the start.
        assertTrue(awaitPicture(1) < 100);
    }

    @Test
    public void continuesAfterPausesTurnsAndLostContexts() throws Exception {
        try (FileInputStream file = new FileInputStream(new File(CLIPS, "turned.mp4"))) {
            view.play(file.getFD(), 0, new File(CLIPS, "turned.mp4").length());
            awaitPicture(40);
        }
        layOut(HEIGHT, WIDTH); // The device is turned.
        Bitmap picture = capture();
        assertEquals(HEIGHT, picture.getWidth());
        assertEquals(WIDTH, picture.getHeight());
        GlThreads.loseContext(asView());
        view.play(clip("bars.mp4"));
        view.seekTo(60L * FRAME_US);
        awaitPicture(60);
        view.pause();
        int number = settled().number;
        view.onPause();
        view.onResume();
        number = awaitSame(number);
        GlThreads.loseContext(asView());
        number = awaitSame(number);
        Windows.leave(asView()); // As in a list.
        layOut(WIDTH, HEIGHT);
        number = awaitSame(number);
        view.setRotation(90);
        awaitSame(number);
        assertEquals(HEIGHT, capture().getWidth());
        view.setRotation(0);
        if (view instanceof VornTextureView) {
            Windows.loseSurface((VornTextureView) view);
            view.seekTo(80L * FRAME_US); // Runs in the context that was kept.
            layOut(WIDTH, HEIGHT);
            awaitPicture(80);
        }
    }

    /** Waits until the picture of this number is shown again, and returns the number that stays. */
    private int awaitSame(int number) throws Exception {
        awaitPicture(number);
        int again = settled().position;
        assertEquals(number, again, OVERSHOOT);
        return again;
    }

    @Test
    public void reportsWhatCannotBePlayed() throws InterruptedException {
        view.play(clip("none.mp4"));
        assertTrue(errors.poll(PATIENCE_S, TimeUnit.SECONDS) instanceof IOException);
        view.play(clip("text.mp4"));
        assertTrue(errors.poll(PATIENCE_S, TimeUnit.SECONDS) instanceof IOException);
        view.queueEvent(() -> NextDecoder.fails(NextDecoder.CREATE, 0, 0));
        assertFailure(RendererException.Reason.NO_DECODER);
        view.queueEvent(
                () -> NextDecoder.fails(NextDecoder.ALL, NextDecoder.ERROR_RECLAIMED, 20));
        assertFailure(RendererException.Reason.DECODER_RECLAIMED);
        view.play(clip("bars.mp4"));
        awaitPicture(3);
        if (view instanceof VornTextureView) { // The other view's thread is Android's.
            GlThreads.refuseContexts(true);
            GlThreads.loseContext(asView());
            assertReason(RendererException.Reason.NO_CONTEXT);
            GlThreads.refuseContexts(false);
            layOut(WIDTH, HEIGHT);
            awaitPicture(4);
        }
    }

    private void assertReason(RendererException.Reason reason) throws InterruptedException {
        Exception error = errors.poll(PATIENCE_S, TimeUnit.SECONDS);
        assertEquals(reason, ((RendererException) error).reason());
    }

    private void assertFailure(RendererException.Reason reason) throws InterruptedException {
        view.play(clip("bars.mp4"));
        assertReason(reason);
        assertFalse(view.isPlaying());
    }

    private void press(int key) {
        assertTrue(asView().onKeyDown(key, new KeyEvent(KeyEvent.ACTION_DOWN, key)));
    }

    private void touch(long timeMs, int action, float x, float y) {
        asView().onTouchEvent(MotionEvent.obtain(0, timeMs, action, x, y, 0));
    }

    @Test
    public void fingersMoveThePicture() throws Exception {
        view.play(clip("bars.mp4"));
        view.pause();
        view.seekTo(65L * FRAME_US);
        awaitPicture(65);
        touch(0, MotionEvent.ACTION_DOWN, 10, 10);
        touch(10, MotionEvent.ACTION_MOVE, 90, 10); // To the right by two bars.
        touch(20, MotionEvent.ACTION_UP, 90, 10);
        Still still = settled();
        assertEquals(still.position << 2 & 0xFF, still.number);
        touch(1000, MotionEvent.ACTION_DOWN, 10, 10);
        touch(1010, MotionEvent.ACTION_UP, 10, 10);
        touch(1020, MotionEvent.ACTION_DOWN, 10, 10);
        still = settled();
        assertEquals(still.position, still.number);
        Pinch.apply(asView(), 2); // Of bars 2 to 5, each is twice as wide.
        still = settled();
        assertEquals(still.position >> 2 & 1, still.number & 1);
        assertEquals(still.position >> 5 & 1, still.number >> 7);
    }

    @Test
    public void heedsLayoutsAndScreenReaders() throws Exception {
        assertEquals("Video", asView().getContentDescription());
        close();
        Map<String, String> layout =
                Map.of(
                        "vornSource", clip("bars.mp4").toString(),
                        "vornMirrored", "true",
                        "vornScaleMode", "stretch",
                        "vornBorderColor", "#FF0000",
                        "vornLooping", "true");
        open((namespace, name) -> layout.get(name));
        awaitPicture(4);
        assertEquals("Pause", act(AccessibilityNodeInfo.ACTION_CLICK));
        awaitState("Paused");
        assertFalse(view.isPlaying());
        act(AccessibilityNodeInfo.ACTION_SCROLL_FORWARD); // By 5 s.
        awaitPicture(126);
        Still still = settled();
        assertEquals(still.position, Integer.reverse(still.number) >>> Integer.SIZE - BITS);
        assertEquals("Play", act(AccessibilityNodeInfo.ACTION_CLICK));
        awaitState("Playing");
        view.setGestures(false);
        assertFalse(asView().performAccessibilityAction(AccessibilityNodeInfo.ACTION_CLICK, null));
    }

    /** Returns what a screen reader says that a click does. */
    private CharSequence act(int action) {
        AccessibilityNodeInfo info = AccessibilityNodeInfo.obtain();
        asView().onInitializeAccessibilityNodeInfo(info);
        assertTrue(asView().performAccessibilityAction(action, null));
        return info.getActionList().get(0).getLabel();
    }

    private void awaitState(String state) throws InterruptedException {
        awaitThat(() -> state.equals(asView().getStateDescription()));
    }

    /** With both views, 200. */
    @Test
    public void aHundredLivesLeaveNothing() throws Exception {
        long[] before = null;
        List<String> files = null;
        for (int life = 0; life < 100; ++life) {
            if (life == 30) {
                before = resources();
                files = openFiles();
            }
            view.play(clip("bars.mp4"));
            awaitPicture(0);
            if (life % 2 == 0) { // Else it is removed without a pause.
                view.onPause();
            }
            Windows.leave(asView());
            open();
        }
        long threads = before[0];
        awaitThat(() -> Thread.activeCount() <= threads); // They end by themselves.
        List<String> filesBefore = files;
        awaitThat(
                () -> openFiles().size() <= filesBefore.size(),
                () -> filesBefore + " became " + openFiles());
        assertFalse(openFiles().toString(), openFiles().toString().contains(CLIPS.getPath()));
        long pages = resources()[1] - before[1];
        assertTrue(pages + " pages more", pages <= Integer.getInteger("vorn.growth"));
    }

    private static long[] resources() throws IOException {
        System.gc();
        String pages = Files.readString(Path.of("/proc/self/statm")).split(" ")[1];
        return new long[] {Thread.activeCount(), Long.parseLong(pages)};
    }

    private static List<String> openFiles() {
        List<String> names = new ArrayList<>();
        for (File descriptor : new File("/proc/self/fd").listFiles()) {
            try {
                names.add(Files.readSymbolicLink(descriptor.toPath()).toString());
            } catch (IOException e) {
                names.add("closed meanwhile");
            }
        }
        return names;
    }
}
