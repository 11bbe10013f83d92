package android.opengl;

import android.view.View;

/** What only the system does to GL threads. */
public final class GlThreads {
    private GlThreads() {}

    public static void loseContext(View view) {
        if (view instanceof GLSurfaceView) {
            ((GLSurfaceView) view).loseContext();
        } else {
            EGL14.contextIsLost = true;
        }
    }

    /** New contexts fail, as on a device without OpenGL ES 3. */
    public static void refuseContexts(boolean refuse) {
        EGL14.configIsMissing = refuse;
    }
}
