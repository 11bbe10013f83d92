package org.vornrenderer;

import android.view.MotionEvent;
import org.jetbrains.annotations.NotNull;

/** Moves the sticker that a finger touches, on the UI thread. */
final class StickerDrag {
    private final PictureView view;

    /** Null while no sticker is touched. */
    private Sticker dragged;

    private float lastX;
    private float lastY;

    StickerDrag(@NotNull PictureView view) {
        this.view = view;
    }

    /** Returns whether the event is for a sticker: all events from a touch on one to its end. */
    boolean onTouch(@NotNull MotionEvent event) {
        int action = event.getActionMasked();
        if (action == MotionEvent.ACTION_DOWN) {
            Sticker touched = view.stickerAt(event.getX(), event.getY());
            dragged = touched != null && touched.isDraggable() ? touched : null;
        } else if (dragged != null && action == MotionEvent.ACTION_MOVE) {
            dragged.moveTo(
                    dragged.x() + event.getX() - lastX, dragged.y() + event.getY() - lastY);
        }
        boolean used = dragged != null;
        lastX = event.getX();
        lastY = event.getY();
        if (action == MotionEvent.ACTION_UP || action == MotionEvent.ACTION_CANCEL) {
            dragged = null;
        }
        return used;
    }
}
