package android.graphics;

/** A rectangle of pixels; right and bottom lie outside. */
public final class Rect {
    public int left;
    public int top;
    public int right;
    public int bottom;

    public Rect() {}

    public Rect(int left, int top, int right, int bottom) {
        this.left = left;
        this.top = top;
        this.right = right;
        this.bottom = bottom;
    }

    public void set(Rect src) {
        left = src.left;
        top = src.top;
        right = src.right;
        bottom = src.bottom;
    }

    public int width() {
        return right - left;
    }

    public int height() {
        return bottom - top;
    }
}
