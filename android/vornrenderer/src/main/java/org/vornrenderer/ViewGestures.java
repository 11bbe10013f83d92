package org.vornrenderer;

import android.content.Context;
import android.view.GestureDetector;
import android.view.MotionEvent;
import android.view.ScaleGestureDetector;
import org.jetbrains.annotations.NotNull;

/** Drag, pinch and double tap, on the UI thread. */
final class ViewGestures {
    private final VideoPlayer player;
    private final GestureDetector moves;
    private final ScaleGestureDetector pinches;

    ViewGestures(@NotNull VideoPlayer player) {
        this.player = player;
        Context context = player.getContext();
        moves = new GestureDetector(context, new Moves());
        pinches = new ScaleGestureDetector(context, new Pinches());
    }

    void onTouch(@NotNull MotionEvent event) {
        pinches.onTouchEvent(event);
        if (!pinches.isInProgress()) {
            moves.onTouchEvent(event);
        }
    }

    private final class Moves extends GestureDetector.SimpleOnGestureListener {
        @Override
        public boolean onDown(MotionEvent event) {
            return true;
        }

        @Override
        public boolean onScroll(MotionEvent first, MotionEvent now, float left, float up) {
            player.drag(-left, -up);
            return true;
        }

        @Override
        public boolean onDoubleTap(MotionEvent event) {
            player.resetView();
            return true;
        }
    }

    private final class Pinches extends ScaleGestureDetector.SimpleOnScaleGestureListener {
        @Override
        public boolean onScale(ScaleGestureDetector detector) {
            player.zoomBy(detector.getScaleFactor());
            return true;
        }
    }
}
