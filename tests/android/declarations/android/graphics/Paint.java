package android.graphics;

public class Paint {
    public static final int ANTI_ALIAS_FLAG = 1;

    public enum Style {
        STROKE
    }

    public Paint(int flags) {}

    public native void setColor(int color);

    public native void setStyle(Style style);

    public native void setStrokeWidth(float width);
}
