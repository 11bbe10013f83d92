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

    private final GestureDetector moves;
    private final ScaleGestureDetector pinches;

    ViewGestures(@NotNull Context context, @NotNull Target target) {
        moves = new GestureDetector(context, new Moves(target));
        pinches = new ScaleGestureDetector(context, new Pinches(target));
    }

    void onTouch(@NotNull MotionEvent event) {
        pinches.onTouchEvent(event);
        if (!pinches.isInProgress()) {
            moves.onTouchEvent(event);
        }
    }

    private static final class Moves extends GestureDetector.SimpleOnGestureListener {
        private final Target target;

        Moves(Target target) {
            this.target = target;
        }

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

    private static final class Pinches extends ScaleGestureDetector.SimpleOnScaleGestureListener {
        private final Target target;

        Pinches(Target target) {
            this.target = target;
        }

        @Override
        public boolean onScale(ScaleGestureDetector detector) {
            target.zoomBy(detector.getScaleFactor());
            return true;
        }
    }
}
