package android.view;

/** Two fingers, which only the system can move. */
public final class Pinch {
    private Pinch() {}

    /** They move apart to so many times their distance. */
    public static void apply(View view, float factor) {
        view.onTouchEvent(new MotionEvent(0, MotionEvent.ACTION_POINTER_DOWN, 0, 0, 10, 0));
        view.onTouchEvent(new MotionEvent(1, MotionEvent.ACTION_MOVE, 0, 0, 10 * factor, 0));
        view.onTouchEvent(new MotionEvent(2, MotionEvent.ACTION_POINTER_UP, 0, 0, 10 * factor, 0));
    }
}
