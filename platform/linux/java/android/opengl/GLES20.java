package android.opengl;

import java.nio.Buffer;

/** OpenGL ES 2.0, as far as needed. Buffers are direct, and have bytes. */
public class GLES20 {
    public static final int GL_BLEND = 0x0BE2;
    public static final int GL_CLAMP_TO_EDGE = 0x812F;
    public static final int GL_COLOR_ATTACHMENT0 = 0x8CE0;
    public static final int GL_COLOR_BUFFER_BIT = 0x4000;
    public static final int GL_FRAGMENT_SHADER = 0x8B30;
    public static final int GL_FRAMEBUFFER = 0x8D40;
    public static final int GL_FRAMEBUFFER_BINDING = 0x8CA6;
    public static final int GL_LINEAR = 0x2601;
    public static final int GL_LINK_STATUS = 0x8B82;
    public static final int GL_MAX_TEXTURE_SIZE = 0x0D33;
    public static final int GL_ONE = 1;
    public static final int GL_ONE_MINUS_SRC_ALPHA = 0x0303;
    public static final int GL_OUT_OF_MEMORY = 0x0505;
    public static final int GL_RGB = 0x1907;
    public static final int GL_RGBA = 0x1908;
    public static final int GL_SRC_ALPHA = 0x0302;
    public static final int GL_TEXTURE0 = 0x84C0;
    public static final int GL_TEXTURE_2D = 0x0DE1;
    public static final int GL_TEXTURE_MAG_FILTER = 0x2800;
    public static final int GL_TEXTURE_MIN_FILTER = 0x2801;
    public static final int GL_TEXTURE_WRAP_S = 0x2802;
    public static final int GL_TEXTURE_WRAP_T = 0x2803;
    public static final int GL_TRIANGLE_STRIP = 5;
    public static final int GL_UNPACK_ALIGNMENT = 0x0CF5;
    public static final int GL_UNSIGNED_BYTE = 0x1401;
    public static final int GL_VERTEX_SHADER = 0x8B31;
    public static final int GL_ZERO = 0;

    static {
        System.loadLibrary("android");
    }

    public static native void glActiveTexture(int texture);

    public static native void glAttachShader(int program, int shader);

    public static native void glBindFramebuffer(int target, int framebuffer);

    public static native void glBindTexture(int target, int texture);

    public static native void glBlendFuncSeparate(
            int srcRGB, int dstRGB, int srcAlpha, int dstAlpha);

    public static native void glClear(int mask);

    public static native void glClearColor(float red, float green, float blue, float alpha);

    public static native void glCompileShader(int shader);

    public static native int glCreateProgram();

    public static native int glCreateShader(int type);

    public static native void glDeleteFramebuffers(int n, int[] framebuffers, int offset);

    public static native void glDeleteProgram(int program);

    public static native void glDeleteShader(int shader);

    public static native void glDeleteTextures(int n, int[] textures, int offset);

    public static native void glDisable(int cap);

    public static native void glDrawArrays(int mode, int first, int count);

    public static native void glEnable(int cap);

    public static native void glFramebufferTexture2D(
            int target, int attachment, int textarget, int texture, int level);

    public static native void glGenFramebuffers(int n, int[] framebuffers, int offset);

    public static native void glGenTextures(int n, int[] textures, int offset);

    public static native int glGetError();

    /** For one value. */
    public static native void glGetIntegerv(int pname, int[] params, int offset);

    public static native String glGetProgramInfoLog(int program);

    public static native void glGetProgramiv(int program, int pname, int[] params, int offset);

    public static native int glGetUniformLocation(int program, String name);

    public static native void glLinkProgram(int program);

    public static native void glPixelStorei(int pname, int param);

    public static native void glReadPixels(
            int x, int y, int width, int height, int format, int type, Buffer pixels);

    public static native void glShaderSource(int shader, String string);

    public static native void glTexParameteri(int target, int pname, int param);

    /** From the buffer's position on. */
    public static void glTexSubImage2D(
            int target, int level, int xoffset, int yoffset, int width, int height, int format,
            int type, Buffer pixels) {
        nativeTexSubImage2D(
                target, level, xoffset, yoffset, width, height, format, type, pixels,
                pixels.position());
    }

    private static native void nativeTexSubImage2D(
            int target, int level, int x, int y, int width, int height, int format, int type,
            Buffer pixels, int position);

    public static native void glUniform1i(int location, int x);

    public static native void glUniform4f(int location, float x, float y, float z, float w);

    public static native void glUseProgram(int program);

    public static native void glViewport(int x, int y, int width, int height);
}
