package android.view;

import android.content.Context;
import android.graphics.SurfaceTexture;
import android.util.AttributeSet;

/** A view that shows a SurfaceTexture, which exists while the view is laid out in a window. */
public class TextureView extends View {
    /** Called on the thread of all views. */
    public interface SurfaceTextureListener {
        void onSurfaceTextureAvailable(SurfaceTexture surface, int width, int height);

        void onSurfaceTextureSizeChanged(SurfaceTexture surface, int width, int height);

        /** Returns whether the view may release the texture. */
        boolean onSurfaceTextureDestroyed(SurfaceTexture surface);

        void onSurfaceTextureUpdated(SurfaceTexture surface);
    }

    private SurfaceTextureListener listener;
    private SurfaceTexture surface;

    public TextureView(Context context) {
        super(context);
    }

    public TextureView(Context context, AttributeSet attrs) {
        super(context, attrs);
    }

    public void setSurfaceTextureListener(SurfaceTextureListener listener) {
        this.listener = listener;
    }

    @Override
    public void layout(int l, int t, int r, int b) {
        super.layout(l, t, r, b);
        boolean isNew = surface == null;
        if (isNew) {
            surface = new SurfaceTexture(0);
        }
        surface.setDefaultBufferSize(r - l, b - t);
        if (isNew) {
            listener.onSurfaceTextureAvailable(surface, r - l, b - t);
        } else {
            listener.onSurfaceTextureSizeChanged(surface, r - l, b - t);
        }
    }

    /** As when the view leaves its window, or is hidden for long. */
    void destroySurface() {
        SurfaceTexture old = surface;
        surface = null;
        if (old != null && listener.onSurfaceTextureDestroyed(old)) {
            old.release();
        }
    }

    @Override
    void leaveWindow() {
        super.leaveWindow();
        destroySurface();
    }

    /** As when the system takes the surface away before it says so. */
    void loseSurface() {
        surface.release();
    }
}
