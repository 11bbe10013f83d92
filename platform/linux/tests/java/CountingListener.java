import android.graphics.SurfaceTexture;

/** Counts its calls, and fails in the first: the producer must not notice. */
public final class CountingListener implements SurfaceTexture.OnFrameAvailableListener {
    private int calls;

    @Override
    public void onFrameAvailable(SurfaceTexture surfaceTexture) {
        if (surfaceTexture.isReleased()) {
            return;
        }
        ++calls;
        if (calls == 1) {
            throw new IllegalStateException("thrown for the test");
        }
    }
}
