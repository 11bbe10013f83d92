package android.graphics;

public class Color {
    public static final int RED = 0xFFFF0000;
    public static final int WHITE = 0xFFFFFFFF;
}
