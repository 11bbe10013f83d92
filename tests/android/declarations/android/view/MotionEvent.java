package android.view;

public final class MotionEvent {
    private MotionEvent() {}

    public native float getX();

    public native float getY();
}
