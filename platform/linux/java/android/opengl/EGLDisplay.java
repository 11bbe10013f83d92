package android.opengl;

/** A display of EGL. */
public class EGLDisplay {
    final long handle;

    EGLDisplay(long handle) {
        this.handle = handle;
    }
}
