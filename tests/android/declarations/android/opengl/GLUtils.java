package android.opengl;

import android.graphics.Bitmap;

public final class GLUtils {
    private GLUtils() {}

    public static native void texImage2D(int target, int level, Bitmap bitmap, int border);
}
