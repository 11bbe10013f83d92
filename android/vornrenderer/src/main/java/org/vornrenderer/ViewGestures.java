package org.vornrenderer;

import android.content.Context;
import android.view.GestureDetector;
import android.view.MotionEvent;
import android.view.ScaleGestureDetector;
import org.jetbrains.annotations.NotNull;

/** Drag, pinch and double tap, on the UI thread. */
final class ViewGestures {
    /** What they do. */
    interface Target {
        void drag(float right, float down);

        void zoomBy(float factor);

        void reset();
    }

    private final Target target;
    private final GestureDetector moves;
    private final ScaleGestureDetector pinches;

    ViewGestures(@NotNull Context context, @NotNull Target target) {
        this.target = target;
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
            target.drag(-left, -up);
            return true;
        }

        @Override
        public boolean onDoubleTap(MotionEvent event) {
            target.reset();
            return true;
        }
    }

    private final class Pinches extends ScaleGestureDetector.SimpleOnScaleGestureListener {
        @Override
        public boolean onScale(ScaleGestureDetector detector) {
            target.zoomBy(detector.getScaleFactor());
            return true;
        }
    }
}
