package android.view;

/** What only the system does to views. */
public final class Windows {
    private Windows() {}

    /** As when the view is removed from its parent. */
    public static void leave(View view) {
        view.leaveWindow();
    }

    /** The surface ends before the view hears of it, as in mid-frame. */
    public static void loseSurface(TextureView view) {
        view.loseSurface();
        view.destroySurface();
    }
}
