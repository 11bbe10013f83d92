package org.vornrenderer.sample;

import android.app.Activity;
import android.content.Intent;
import android.os.Bundle;
import android.widget.Switch;
import org.vornrenderer.VornVideoView;

/** Plays a file that the user picks. Drag moves it, pinch zooms, double tap resets. */
public final class PlayerActivity extends Activity {
    private static final int PICK_VIDEO = 1;

    private VornVideoView video;

    @Override
    protected void onCreate(Bundle state) {
        super.onCreate(state);
        setContentView(R.layout.player);
        video = findViewById(R.id.video);
        video.follow(this);
        video.setErrorListener(reason -> Message.show(this, reason.getMessage()));
        findViewById(R.id.open).setOnClickListener(button -> pickVideo());
        Switch mirror = findViewById(R.id.mirror);
        mirror.setOnCheckedChangeListener((button, on) -> video.setMirrored(on));
    }

    @Override
    protected void onActivityResult(int request, int result, Intent picked) {
        if (request == PICK_VIDEO && result == RESULT_OK && picked != null) {
            video.play(picked.getData());
        }
    }

    private void pickVideo() {
        Intent intent = new Intent(Intent.ACTION_OPEN_DOCUMENT);
        intent.addCategory(Intent.CATEGORY_OPENABLE);
        intent.setType("video/*");
        startActivityForResult(intent, PICK_VIDEO);
    }
}
