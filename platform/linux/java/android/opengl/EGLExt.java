package android.opengl;

/** Extensions of EGL. */
public class EGLExt {
    public static final int EGL_OPENGL_ES3_BIT_KHR = 0x40;
}
