package android.hardware.camera2;

import android.os.Handler;

/** A camera at work. */
public class CameraCaptureSession {
    /** Is told what becomes of it. */
    public abstract static class StateCallback {
        public abstract void onConfigured(CameraCaptureSession session);

        public abstract void onConfigureFailed(CameraCaptureSession session);
    }

    /** Is told of each picture. */
    public abstract static class CaptureCallback {}

    CameraCaptureSession() {}

    public int setRepeatingRequest(
            CaptureRequest request, CaptureCallback listener, Handler handler)
            throws CameraAccessException {
        CameraDevice.target = request.target;
        return 0;
    }
}
