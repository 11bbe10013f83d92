package android.widget;

import android.content.Context;

public class Toast {
    public static final int LENGTH_LONG = 1;

    private Toast() {}

    public static native Toast makeText(Context context, CharSequence text, int duration);

    public native void show();
}
