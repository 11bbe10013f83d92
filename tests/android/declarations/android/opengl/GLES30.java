package android.opengl;

public class GLES30 extends GLES20 {
    public static final int GL_DRAW_FRAMEBUFFER = 0x8CA9;
    public static final int GL_READ_FRAMEBUFFER = 0x8CA8;

    public static native void glBlitFramebuffer(
            int fromX0,
            int fromY0,
            int fromX1,
            int fromY1,
            int toX0,
            int toY0,
            int toX1,
            int toY1,
            int mask,
            int filter);
}
