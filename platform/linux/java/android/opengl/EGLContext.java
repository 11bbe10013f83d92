package android.opengl;

/** A GL context of EGL. */
public class EGLContext {
    final long handle;

    EGLContext(long handle) {
        this.handle = handle;
    }
}
