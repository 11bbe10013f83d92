package android.opengl;

import android.graphics.SurfaceTexture;

/** What GL draws into of EGL. */
public class EGLSurface {
    final long handle;

    /** The size follows this texture, and it ends with it; null for other surfaces. */
    SurfaceTexture window;

    EGLSurface(long handle) {
        this.handle = handle;
    }
}
