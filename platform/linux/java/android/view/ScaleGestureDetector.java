package android.view;

import android.content.Context;

/** Recognizes two fingers that move apart or together. */
public class ScaleGestureDetector {
    public interface OnScaleGestureListener {
        boolean onScale(ScaleGestureDetector detector);
    }

    public static class SimpleOnScaleGestureListener implements OnScaleGestureListener {
        @Override
        public boolean onScale(ScaleGestureDetector detector) {
            return false;
        }
    }

    private final OnScaleGestureListener listener;
    private double span;
    private float factor = 1;

    public ScaleGestureDetector(Context context, OnScaleGestureListener listener) {
        this.listener = listener;
    }

    public boolean onTouchEvent(MotionEvent event) {
        double before = span;
        span = event.getPointerCount() < 2
                        || event.getActionMasked() == MotionEvent.ACTION_POINTER_UP
                ? 0
                : Math.hypot(event.getX(0) - event.getX(1), event.getY(0) - event.getY(1));
        if (before > 0 && span > 0) {
            factor = (float) (span / before);
            listener.onScale(this);
        }
        return true;
    }

    public boolean isInProgress() {
        return span > 0;
    }

    public float getScaleFactor() {
        return factor;
    }
}
