package android.hardware.camera2;

import android.os.Handler;
import android.view.Surface;
import java.util.List;

/** An open camera. */
public class CameraDevice implements AutoCloseable {
    /** Is told what becomes of it. */
    public abstract static class StateCallback {
        public abstract void onOpened(CameraDevice camera);

        public abstract void onDisconnected(CameraDevice camera);

        public abstract void onError(CameraDevice camera, int error);
    }

    public static final int TEMPLATE_PREVIEW = 1;

    /** What the camera draws into; null for none. */
    static volatile Surface target;

    CameraDevice() {}

    public void createCaptureSession(
            List<Surface> outputs, CameraCaptureSession.StateCallback callback, Handler handler)
            throws CameraAccessException {
        callback.onConfigured(new CameraCaptureSession());
    }

    public CaptureRequest.Builder createCaptureRequest(int templateType)
            throws CameraAccessException {
        return new CaptureRequest.Builder();
    }

    @Override
    public void close() {
        target = null;
    }
}
