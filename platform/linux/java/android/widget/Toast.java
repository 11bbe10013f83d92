package android.widget;

import android.content.Context;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.LinkedBlockingQueue;

/** A text that is shown for a while. */
public class Toast {
    public static final int LENGTH_LONG = 1;

    /** What was shown. */
    static final BlockingQueue<String> shown = new LinkedBlockingQueue<>();

    private final String text;

    private Toast(String text) {
        this.text = text;
    }

    public static Toast makeText(Context context, CharSequence text, int duration) {
        return new Toast(text.toString());
    }

    public void show() {
        shown.add(text);
    }
}
