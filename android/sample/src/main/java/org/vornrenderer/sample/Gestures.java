package org.vornrenderer.sample;

import android.opengl.GLSurfaceView;
import android.view.GestureDetector;
import android.view.MotionEvent;
import android.view.ScaleGestureDetector;
import android.view.View;

/** Passes gestures to the player, on the GL thread. */
final class Gestures implements View.OnTouchListener {
    private final GestureDetector moves;
    private final ScaleGestureDetector pinches;

    Gestures(GLSurfaceView view, Player player) {
        moves = new GestureDetector(view.getContext(), new Moves(view, player));
        pinches = new ScaleGestureDetector(view.getContext(), new Pinches(view, player));
    }

    @Override
    public boolean onTouch(View view, MotionEvent event) {
        pinches.onTouchEvent(event);
        if (!pinches.isInProgress()) {
            moves.onTouchEvent(event);
        }
        return true;
    }

    private static final class Moves extends GestureDetector.SimpleOnGestureListener {
        private final GLSurfaceView view;
        private final Player player;

        Moves(GLSurfaceView view, Player player) {
            this.view = view;
            this.player = player;
        }

        @Override
        public boolean onDown(MotionEvent event) {
            return true;
        }

        @Override
        public boolean onScroll(MotionEvent first, MotionEvent now, float left, float up) {
            view.queueEvent(() -> player.drag(-left, -up));
            return true;
        }

        @Override
        public boolean onSingleTapUp(MotionEvent event) {
            float x = event.getX(); // The event itself is reused.
            float y = event.getY();
            view.queueEvent(() -> player.putSticker(x, y));
            return true;
        }
    }

    private static final class Pinches extends ScaleGestureDetector.SimpleOnScaleGestureListener {
        private final GLSurfaceView view;
        private final Player player;

        Pinches(GLSurfaceView view, Player player) {
            this.view = view;
            this.player = player;
        }

        @Override
        public boolean onScale(ScaleGestureDetector detector) {
            float factor = detector.getScaleFactor();
            view.queueEvent(() -> player.zoom(factor));
            return true;
        }
    }
}
