import android.content.Context;
import android.net.Uri;
import android.view.View;
import java.io.File;
import java.lang.management.ManagementFactory;
import java.util.concurrent.CountDownLatch;
import java.util.function.Supplier;
import org.vornrenderer.VideoPlayer;
import org.vornrenderer.VornTextureView;
import org.vornrenderer.VornVideoView;

/**
 * What the GL thread of a view allocates in Java for each picture of a clip, by the counters of the VM.
 * Arguments: a clip of 5 s or more.
 */
public final class ViewBench {
    /** By then, classes are loaded and code is compiled. */
    private static final int WARM_UP = 50;

    private static final com.sun.management.ThreadMXBean THREADS =
            (com.sun.management.ThreadMXBean) ManagementFactory.getThreadMXBean();

    private int pictures;
    private int clean;
    private long first;
    private long last;

    private ViewBench() {}

    public static void main(String[] arguments) throws InterruptedException {
        Uri clip = Uri.fromFile(new File(arguments[0]));
        System.out.println("| view | pictures | without allocation | bytes per picture |");
        System.out.println("|---|--:|--:|--:|");
        new ViewBench().run("VornVideoView", () -> new VornVideoView(new Context() {}), clip);
        new ViewBench().run("VornTextureView", () -> new VornTextureView(new Context() {}), clip);
    }

    private void run(String name, Supplier<VideoPlayer> make, Uri clip)
            throws InterruptedException {
        VideoPlayer view = make.get();
        CountDownLatch end = new CountDownLatch(1);
        view.setFrameListener(timeUs -> count());
        view.setEndListener(end::countDown);
        view.setErrorListener(
                reason -> {
                    reason.printStackTrace();
                    System.exit(1);
                });
        ((View) view).layout(0, 0, 320, 240);
        view.play(clip);
        end.await();
        view.onPause();
        int counted = pictures - WARM_UP;
        System.out.printf(
                "| %s | %d | %d | %.1f |%n", name, counted, clean, (double) (last - first) / counted);
    }

    /** On the GL thread, after each picture. */
    private void count() {
        long now = THREADS.getThreadAllocatedBytes(Thread.currentThread().getId());
        ++pictures;
        if (pictures <= WARM_UP) {
            first = now;
        } else if (now == last) {
            ++clean;
        }
        last = now;
    }
}
