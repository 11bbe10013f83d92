package android.view;

import android.content.Context;

public class View {
    public interface OnClickListener {
        void onClick(View view);
    }

    public interface OnTouchListener {
        boolean onTouch(View view, MotionEvent event);
    }

    public View(Context context) {}

    public final native Context getContext();

    public native void setOnClickListener(OnClickListener listener);

    public native void setOnTouchListener(OnTouchListener listener);
}
