package org.vornrenderer.sample;

import android.app.Activity;
import android.content.Intent;
import android.opengl.GLSurfaceView;
import android.os.Bundle;
import android.widget.Switch;
import android.widget.Toast;

/** Plays a file that the user picks. Drag moves it, pinch zooms, tap puts a sticker. */
public final class PlayerActivity extends Activity {
    private static final int PICK_VIDEO = 1;

    private GLSurfaceView picture;
    private Player player;

    @Override
    protected void onCreate(Bundle state) {
        super.onCreate(state);
        setContentView(R.layout.player);
        player = new Player(this, e -> runOnUiThread(() -> showUnplayable(e)));
        picture = findViewById(R.id.picture);
        picture.setEGLContextClientVersion(3);
        picture.setRenderer(player);
        picture.setOnTouchListener(new Gestures(picture, player));
        findViewById(R.id.open).setOnClickListener(button -> pickVideo());
        Switch mirror = findViewById(R.id.mirror);
        mirror.setOnCheckedChangeListener(
                (button, on) -> picture.queueEvent(() -> player.setMirrored(on)));
    }

    @Override
    protected void onResume() {
        super.onResume();
        picture.onResume();
    }

    /** The GL thread runs the event before it pauses, while its context is current. */
    @Override
    protected void onPause() {
        picture.queueEvent(player::close);
        picture.onPause();
        super.onPause();
    }

    private void pickVideo() {
        Intent intent = new Intent(Intent.ACTION_OPEN_DOCUMENT);
        intent.addCategory(Intent.CATEGORY_OPENABLE);
        intent.setType("video/*");
        startActivityForResult(intent, PICK_VIDEO);
    }

    @Override
    protected void onActivityResult(int request, int result, Intent data) {
        if (request == PICK_VIDEO && result == RESULT_OK && data != null) {
            picture.queueEvent(() -> player.play(data.getData()));
        }
    }

    private void showUnplayable(Exception reason) {
        String text = getString(R.string.cannot_play, reason.getMessage());
        Toast.makeText(this, text, Toast.LENGTH_LONG).show();
    }
}
