package android.opengl;

import java.nio.Buffer;

/** OpenGL ES 2.0, as far as needed. */
public class GLES20 {
    public static final int GL_COLOR_ATTACHMENT0 = 0x8CE0;
    public static final int GL_COLOR_BUFFER_BIT = 0x4000;
    public static final int GL_FRAMEBUFFER = 0x8D40;
    public static final int GL_LINEAR = 0x2601;
    public static final int GL_RGBA = 0x1908;
    public static final int GL_TEXTURE_2D = 0x0DE1;
    public static final int GL_TEXTURE_MIN_FILTER = 0x2801;
    public static final int GL_UNSIGNED_BYTE = 0x1401;

    static {
        System.loadLibrary("android");
    }

    public static native void glBindFramebuffer(int target, int framebuffer);

    public static native void glBindTexture(int target, int texture);

    public static native void glClear(int mask);

    public static native void glClearColor(float red, float green, float blue, float alpha);

    public static native void glDeleteFramebuffers(int n, int[] framebuffers, int offset);

    public static native void glDeleteTextures(int n, int[] textures, int offset);

    public static native void glFramebufferTexture2D(
            int target, int attachment, int textarget, int texture, int level);

    public static native void glGenFramebuffers(int n, int[] framebuffers, int offset);

    public static native void glGenTextures(int n, int[] textures, int offset);

    /** The buffer is direct. */
    public static native void glReadPixels(
            int x, int y, int width, int height, int format, int type, Buffer pixels);

    public static native void glTexParameteri(int target, int pname, int param);
}
