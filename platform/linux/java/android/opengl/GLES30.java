package android.opengl;

/** OpenGL ES 3.0, as far as needed. */
public class GLES30 extends GLES20 {
    public static final int GL_DRAW_FRAMEBUFFER = 0x8CA9;
    public static final int GL_R8 = 0x8229;
    public static final int GL_READ_FRAMEBUFFER = 0x8CA8;
    public static final int GL_RED = 0x1903;
    public static final int GL_RG = 0x8227;
    public static final int GL_RG8 = 0x822B;
    public static final int GL_RGB8 = 0x8051;
    public static final int GL_RGBA8 = 0x8058;
    public static final int GL_UNPACK_ROW_LENGTH = 0x0CF2;

    public static native void glBindVertexArray(int array);

    public static native void glBlitFramebuffer(
            int srcX0, int srcY0, int srcX1, int srcY1,
            int dstX0, int dstY0, int dstX1, int dstY1,
            int mask, int filter);

    public static native void glDeleteVertexArrays(int n, int[] arrays, int offset);

    public static native void glGenVertexArrays(int n, int[] arrays, int offset);

    public static native void glTexStorage2D(
            int target, int levels, int internalformat, int width, int height);
}
