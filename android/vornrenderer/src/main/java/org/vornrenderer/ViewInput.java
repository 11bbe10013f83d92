package org.vornrenderer;

import android.view.KeyEvent;
import android.view.MotionEvent;
import android.view.View;
import android.view.accessibility.AccessibilityNodeInfo;
import android.view.accessibility.AccessibilityNodeInfo.AccessibilityAction;
import org.jetbrains.annotations.NotNull;

/** Touch, keys and screen readers, on the UI thread. */
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

    /** Makes a view that was built ready for keys and screen readers. */
    static void prepare(@NotNull View view) {
        view.setFocusable(true);
        if (view.getContentDescription() == null) {
            view.setContentDescription(view.getContext().getString(R.string.vorn_video));
        }
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

    /** Says what a screen reader can do to a clip. */
    void describe(@NotNull AccessibilityNodeInfo info) {
        if (on && player.durationUs() > 0) {
            int label = player.isPlaying() ? R.string.vorn_pause : R.string.vorn_play;
            String text = player.getContext().getString(label);
            info.addAction(new AccessibilityAction(AccessibilityNodeInfo.ACTION_CLICK, text));
            info.addAction(AccessibilityAction.ACTION_SCROLL_BACKWARD);
            info.addAction(AccessibilityAction.ACTION_SCROLL_FORWARD);
        }
    }

    /** Returns whether the action of a screen reader was for the view. */
    boolean perform(int action) {
        switch (action) {
            case AccessibilityNodeInfo.ACTION_CLICK:
                return press(KeyEvent.KEYCODE_SPACE);
            case AccessibilityNodeInfo.ACTION_SCROLL_BACKWARD:
                return press(KeyEvent.KEYCODE_DPAD_LEFT);
            case AccessibilityNodeInfo.ACTION_SCROLL_FORWARD:
                return press(KeyEvent.KEYCODE_DPAD_RIGHT);
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
