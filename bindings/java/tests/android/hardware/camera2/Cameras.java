package android.hardware.camera2;

import android.view.Surface;

/** What only the system knows of cameras. */
public final class Cameras {
    private Cameras() {}

    /** What the camera draws into; null while it is closed. */
    public static Surface target() {
        return CameraDevice.target;
    }
}
