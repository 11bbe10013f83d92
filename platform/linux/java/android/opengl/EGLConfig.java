package android.opengl;

/** A kind of surfaces of EGL. */
public class EGLConfig {
    final long handle;

    EGLConfig(long handle) {
        this.handle = handle;
    }
}
