package org.vornrenderer.sample;

import android.content.Context;
import android.hardware.camera2.CameraAccessException;
import android.hardware.camera2.CameraCaptureSession;
import android.hardware.camera2.CameraDevice;
import android.hardware.camera2.CameraManager;
import android.hardware.camera2.CaptureRequest;
import android.view.Surface;
import java.util.Collections;

/** Draws the pictures of the first camera into a surface. */
final class CameraFeed extends CameraDevice.StateCallback {
    private final Context context;
    private final Surface surface;
    private boolean wanted;
    private CameraDevice camera;

    CameraFeed(Context context, Surface surface) {
        this.context = context;
        this.surface = surface;
    }

    void open() {
        wanted = true;
        CameraManager manager = context.getSystemService(CameraManager.class);
        try {
            String[] cameras = manager.getCameraIdList();
            if (cameras.length > 0) {
                manager.openCamera(cameras[0], this, null);
            }
        } catch (CameraAccessException | SecurityException e) {
            Message.show(context, e.getMessage());
        }
    }

    void close() {
        wanted = false;
        if (camera != null) {
            camera.close();
            camera = null;
        }
    }

    @Override
    public void onOpened(CameraDevice opened) {
        if (!wanted) {
            opened.close();
            return;
        }
        camera = opened;
        try {
            opened.createCaptureSession(Collections.singletonList(surface), new Preview(), null);
        } catch (CameraAccessException e) {
            Message.show(context, e.getMessage());
        }
    }

    @Override
    public void onDisconnected(CameraDevice lost) {
        close();
    }

    @Override
    public void onError(CameraDevice lost, int error) {
        close();
        Message.show(context, "camera error " + error);
    }

    private final class Preview extends CameraCaptureSession.StateCallback {
        @Override
        public void onConfigured(CameraCaptureSession session) {
            if (camera == null) {
                return; // Closed in the meantime.
            }
            try {
                CaptureRequest.Builder request =
                        camera.createCaptureRequest(CameraDevice.TEMPLATE_PREVIEW);
                request.addTarget(surface);
                session.setRepeatingRequest(request.build(), null, null);
            } catch (CameraAccessException e) {
                Message.show(context, e.getMessage());
            }
        }

        @Override
        public void onConfigureFailed(CameraCaptureSession session) {
            Message.show(context, "the camera has no such size");
        }
    }
}
