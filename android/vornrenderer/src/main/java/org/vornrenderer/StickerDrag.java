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
    private int fingers;

    StickerDrag(@NotNull PictureView view) {
        this.view = view;
    }

    /** Returns whether the event is for a sticker: all events from a touch on one to its end. */
    boolean onTouch(@NotNull MotionEvent event) {
        int action = event.getActionMasked();
        if (action == MotionEvent.ACTION_DOWN) {
            Sticker touched = view.stickerAt(event.getX(), event.getY());
            dragged = touched != null && touched.isDraggable() ? touched : null;
        } else if (dragged != null && event.getPointerCount() == fingers) {
            dragged.moveTo(
                    dragged.x() + event.getX() - lastX, dragged.y() + event.getY() - lastY);
        }
        boolean used = dragged != null;
        fingers = event.getPointerCount(); // With another number, the first may be another finger.
        lastX = event.getX();
        lastY = event.getY();
        if (action == MotionEvent.ACTION_UP || action == MotionEvent.ACTION_CANCEL) {
            dragged = null;
        }
        return used;
    }
}
