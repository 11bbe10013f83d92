package android.view;

import android.content.Context;

/** Recognizes drags and taps of one finger. Unlike on a device, the smallest move is a drag. */
public class GestureDetector {
    public interface OnGestureListener {
        boolean onDown(MotionEvent e);

        boolean onSingleTapUp(MotionEvent e);

        boolean onScroll(MotionEvent e1, MotionEvent e2, float distanceX, float distanceY);
    }

    public interface OnDoubleTapListener {
        boolean onDoubleTap(MotionEvent e);
    }

    public static class SimpleOnGestureListener implements OnGestureListener, OnDoubleTapListener {
        @Override
        public boolean onDown(MotionEvent e) {
            return false;
        }

        @Override
        public boolean onSingleTapUp(MotionEvent e) {
            return false;
        }

        @Override
        public boolean onScroll(MotionEvent e1, MotionEvent e2, float distanceX, float distanceY) {
            return false;
        }

        @Override
        public boolean onDoubleTap(MotionEvent e) {
            return false;
        }
    }

    private static final long DOUBLE_TAP_MS = 300;

    private final OnGestureListener listener;
    private MotionEvent first;
    private MotionEvent last;
    private MotionEvent lastTap;

    public GestureDetector(Context context, OnGestureListener listener) {
        this.listener = listener;
    }

    public boolean onTouchEvent(MotionEvent ev) {
        switch (ev.getActionMasked()) {
            case MotionEvent.ACTION_DOWN:
                return down(ev);
            case MotionEvent.ACTION_MOVE:
                return move(ev);
            case MotionEvent.ACTION_UP:
                return up(ev);
            default:
                return false;
        }
    }

    private boolean down(MotionEvent event) {
        first = event;
        last = event;
        if (lastTap != null && event.getEventTime() - lastTap.getEventTime() < DOUBLE_TAP_MS
                && listener instanceof OnDoubleTapListener) {
            lastTap = null;
            return ((OnDoubleTapListener) listener).onDoubleTap(event);
        }
        return listener.onDown(event);
    }

    private boolean move(MotionEvent event) {
        float x = last.getX() - event.getX();
        float y = last.getY() - event.getY();
        last = event;
        return listener.onScroll(first, event, x, y);
    }

    private boolean up(MotionEvent event) {
        boolean tapped = last == first;
        lastTap = tapped ? event : null;
        return tapped && listener.onSingleTapUp(event);
    }
}
