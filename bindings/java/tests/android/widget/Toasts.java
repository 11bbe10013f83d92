package android.widget;

/** What the user sees of messages. */
public final class Toasts {
    private Toasts() {}

    /** Waits for the next. */
    public static String next() throws InterruptedException {
        return Toast.shown.take();
    }
}
