package android.hardware.camera2;

import android.view.Surface;

/** What a camera does. */
public final class CaptureRequest {
    /** Builds it. */
    public static final class Builder {
        private Surface target;

        Builder() {}

        public void addTarget(Surface outputTarget) {
            target = outputTarget;
        }

        public CaptureRequest build() {
            return new CaptureRequest(target);
        }
    }

    final Surface target;

    private CaptureRequest(Surface target) {
        this.target = target;
    }
}
