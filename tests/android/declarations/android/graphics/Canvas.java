package android.graphics;

public class Canvas {
    public Canvas(Bitmap bitmap) {}

    public native void drawCircle(float x, float y, float radius, Paint paint);
}
