package org.vornrenderer.sample;

import android.app.Activity;
import android.content.Intent;
import android.os.Bundle;

/** Leads to the three screens. */
public final class StartActivity extends Activity {
    @Override
    protected void onCreate(Bundle state) {
        super.onCreate(state);
        setContentView(R.layout.start);
        lead(R.id.file, PlayerActivity.class);
        lead(R.id.camera, CameraActivity.class);
        lead(R.id.stickers, StickerActivity.class);
    }

    private void lead(int button, Class<? extends Activity> screen) {
        findViewById(button).setOnClickListener(view -> startActivity(new Intent(this, screen)));
    }
}
