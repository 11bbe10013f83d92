package org.vornrenderer.sample;

import android.app.Activity;
import android.graphics.Bitmap;
import android.os.Bundle;
import org.vornrenderer.ScaleMode;
import org.vornrenderer.Sticker;
import org.vornrenderer.VornTextureView;

/** A bitmap with balloons that fingers drag. */
public final class StickerActivity extends Activity {
    private static final int[] COLORS = {0xFFE03030, 0xFFF0C020, 0xFF40B050};
    private static final int SIZE = 64;

    @Override
    protected void onCreate(Bundle state) {
        super.onCreate(state);
        VornTextureView view = new VornTextureView(this);
        setContentView(view);
        view.follow(this);
        view.setErrorListener(reason -> Message.show(this, reason.getMessage()));
        view.setScaleMode(ScaleMode.CROP);
        view.show(Drawings.sky(480, 360));
        for (int i = 0; i < COLORS.length; ++i) {
            Bitmap image = Drawings.oval(SIZE, SIZE * 5 / 4, COLORS[i], 0);
            Sticker balloon = new Sticker(image);
            balloon.moveTo((1.25F * i + 1) * SIZE, (i % 2 + 1) * SIZE);
            view.addSticker(balloon);
        }
    }
}
