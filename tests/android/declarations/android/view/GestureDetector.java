package android.view;

import android.content.Context;

public class GestureDetector {
    public interface OnGestureListener {}

    public static class SimpleOnGestureListener implements OnGestureListener {
        public native boolean onDown(MotionEvent event);

        public native boolean onScroll(MotionEvent first, MotionEvent now, float x, float y);

        public native boolean onSingleTapUp(MotionEvent event);
    }

    public GestureDetector(Context context, OnGestureListener listener) {}

    public native boolean onTouchEvent(MotionEvent event);
}
