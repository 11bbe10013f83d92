package org.vornrenderer.sample;

import android.Manifest;
import android.app.Activity;
import android.content.pm.PackageManager;
import android.graphics.Bitmap;
import android.os.Bundle;
import android.view.Surface;
import org.vornrenderer.ScaleMode;
import org.vornrenderer.VornVideoView;

/** What the first camera sees, through an oval. */
public final class CameraActivity extends Activity {
    private static final int WIDTH = 1280;
    private static final int HEIGHT = 720;
    private static final int WHITE = 0xFFFFFFFF;
    private static final int BLACK = 0xFF000000;

    private Surface surface;
    private CameraFeed feed;

    @Override
    protected void onCreate(Bundle state) {
        super.onCreate(state);
        VornVideoView video = new VornVideoView(this);
        setContentView(video);
        video.follow(this);
        video.setErrorListener(reason -> Message.show(this, reason.getMessage()));
        video.setScaleMode(ScaleMode.CROP);
        Bitmap mask = Drawings.oval(HEIGHT / 4, WIDTH / 4, WHITE, BLACK);
        video.setMask(mask);
        surface = new Surface(video.surfaceTexture(WIDTH, HEIGHT));
        feed = new CameraFeed(this, surface);
        if (!mayUseCamera()) {
            requestPermissions(new String[] {Manifest.permission.CAMERA}, 0);
        }
    }

    @Override
    protected void onResume() {
        super.onResume();
        if (mayUseCamera()) { // Also after the user was asked.
            feed.open();
        }
    }

    @Override
    protected void onPause() {
        feed.close();
        super.onPause();
    }

    @Override
    protected void onDestroy() {
        surface.release();
        super.onDestroy();
    }

    @Override
    public void onRequestPermissionsResult(int request, String[] permissions, int[] results) {
        if (!mayUseCamera()) {
            Message.show(this, getString(R.string.no_camera));
        }
    }

    private boolean mayUseCamera() {
        int permission = checkSelfPermission(Manifest.permission.CAMERA);
        return permission == PackageManager.PERMISSION_GRANTED;
    }
}
