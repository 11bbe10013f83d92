package android.graphics;

/** Cannot be made, as when a device runs out of what it needs for it. */
public class SurfaceTexture {
    public SurfaceTexture(int texName) {
        throw new IllegalStateException("out of resources for texture " + texName);
    }

    public void updateTexImage() {}

    public void setDefaultBufferSize(int width, int height) {}
}
