package android.opengl;

/** What only the system does to views. */
public final class GlThreads {
    private GlThreads() {}

    public static void loseContext(GLSurfaceView view) {
        view.loseContext();
    }

    /** As when the view leaves its window. */
    public static void end(GLSurfaceView view) {
        view.onDetachedFromWindow();
    }
}
