package android.view;

import android.content.Context;

public class ScaleGestureDetector {
    public interface OnScaleGestureListener {}

    public static class SimpleOnScaleGestureListener implements OnScaleGestureListener {
        public native boolean onScale(ScaleGestureDetector detector);
    }

    public ScaleGestureDetector(Context context, OnScaleGestureListener listener) {}

    public native float getScaleFactor();

    public native boolean isInProgress();

    public native boolean onTouchEvent(MotionEvent event);
}
