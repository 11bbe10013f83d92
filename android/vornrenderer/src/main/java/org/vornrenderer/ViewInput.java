package org.vornrenderer;

import android.view.KeyEvent;
import android.view.MotionEvent;
import org.jetbrains.annotations.NotNull;

/** Touch and keys of a view, on the UI thread. */
final class ViewInput {
    private static final long STEP_US = 5_000_000;
    private static final float ZOOM_STEP = 1.25F;

    private final VideoPlayer player;
    private final ViewGestures gestures;
    private final StickerDrag stickers;
    private boolean on = true;

    ViewInput(@NotNull VideoPlayer player) {
        this.player = player;
        gestures = new ViewGestures(player);
        stickers = new StickerDrag(player);
    }

    void turn(boolean turnOn) {
        on = turnOn;
    }

    /** Returns whether the event was for the view. */
    boolean touch(@NotNull MotionEvent event) {
        if (on && !stickers.onTouch(event)) {
            gestures.onTouch(event);
        }
        return on;
    }

    /** Returns whether the key was for the view. */
    boolean press(int keyCode) {
        if (!on) {
            return false;
        }
        switch (keyCode) {
            case KeyEvent.KEYCODE_SPACE:
            case KeyEvent.KEYCODE_MEDIA_PLAY_PAUSE:
                toggle();
                return true;
            case KeyEvent.KEYCODE_DPAD_LEFT:
                player.seekTo(player.positionUs() - STEP_US);
                return true;
            case KeyEvent.KEYCODE_DPAD_RIGHT:
                player.seekTo(player.positionUs() + STEP_US);
                return true;
            case KeyEvent.KEYCODE_PLUS:
            case KeyEvent.KEYCODE_EQUALS: // The same key, without shift.
            case KeyEvent.KEYCODE_NUMPAD_ADD:
                player.zoomBy(ZOOM_STEP);
                return true;
            case KeyEvent.KEYCODE_MINUS:
            case KeyEvent.KEYCODE_NUMPAD_SUBTRACT:
                player.zoomBy(1 / ZOOM_STEP);
                return true;
            case KeyEvent.KEYCODE_0:
                player.resetView();
                return true;
            default:
                return false;
        }
    }

    private void toggle() {
        if (player.isPlaying()) {
            player.pause();
        } else {
            player.resume();
        }
    }
}
