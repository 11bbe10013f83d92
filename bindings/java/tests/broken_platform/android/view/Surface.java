package android.view;

import android.graphics.SurfaceTexture;

/** Goes with the broken SurfaceTexture. */
public class Surface {
    public Surface(SurfaceTexture texture) {
        texture.setDefaultBufferSize(1, 1);
    }
}
