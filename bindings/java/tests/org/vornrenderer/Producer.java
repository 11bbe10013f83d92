package org.vornrenderer;

import android.view.Surface;
import java.nio.ByteBuffer;

/** Draws into surfaces, as cameras do. */
final class Producer {
    static final int ROTATE_90 = 4;

    static {
        System.loadLibrary("next_decoder");
    }

    private Producer() {}

    /** Posts a frame of RGBA, of the surface's default size, that is shown turned. */
    static native void post(Surface surface, ByteBuffer pixels, int transform);
}
