package android.graphics;

public final class Bitmap {
    public enum Config {
        ARGB_8888
    }

    private Bitmap() {}

    public static native Bitmap createBitmap(int width, int height, Config config);

    public native void eraseColor(int color);

    public native void recycle();
}
