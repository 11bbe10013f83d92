package android.view;

/** Where fingers touch. */
public final class MotionEvent {
    public static final int ACTION_DOWN = 0;
    public static final int ACTION_UP = 1;
    public static final int ACTION_MOVE = 2;
    public static final int ACTION_CANCEL = 3;
    public static final int ACTION_POINTER_DOWN = 5;
    public static final int ACTION_POINTER_UP = 6;

    private final long eventTime;
    private final int action;
    private final float[] places;

    /** With x and y of each finger. */
    MotionEvent(long eventTime, int action, float... places) {
        this.eventTime = eventTime;
        this.action = action;
        this.places = places;
    }

    public static MotionEvent obtain(
            long downTime, long eventTime, int action, float x, float y, int metaState) {
        return new MotionEvent(eventTime, action, x, y);
    }

    public int getActionMasked() {
        return action;
    }

    /** Milliseconds. */
    public long getEventTime() {
        return eventTime;
    }

    public int getPointerCount() {
        return places.length / 2;
    }

    public float getX() {
        return getX(0);
    }

    public float getY() {
        return getY(0);
    }

    public float getX(int pointerIndex) {
        return places[2 * pointerIndex];
    }

    public float getY(int pointerIndex) {
        return places[2 * pointerIndex + 1];
    }
}
