package org.vornrenderer;

import android.graphics.Bitmap;
import android.opengl.GLES30;
import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;

/** Copies what was drawn out of GL. Runs on the GL thread. */
final class Capture {
    private final Painter painter;

    Capture(@NotNull Painter painter) {
        this.painter = painter;
    }

    /** The picture as it shows: opaque, or transparent where a mask hides it. */
    @NotNull
    Bitmap take(@NotNull Picture picture, boolean masked) {
        int width = picture.width();
        int height = picture.height();
        try (RenderTarget target = new RenderTarget(width, height)) {
            target.bind();
            GLES30.glClearColor(0, 0, 0, masked ? 0 : 1);
            GLES30.glClear(GLES30.GL_COLOR_BUFFER_BIT);
            painter.begin(width, height);
            // GL reads from the bottom, where the first row comes to.
            Painter.Blend blend = masked ? Painter.Blend.STRAIGHT : Painter.Blend.OPAQUE;
            painter.draw(picture.texture(), 0, height, width, -height, blend);
            painter.end();
            return read(target);
        }
    }

    /** What a call of the argument draws on a screen of this size. */
    @NotNull
    Bitmap take(int width, int height, @NotNull Runnable paint) {
        try (RenderTarget screen = new RenderTarget(width, height);
                RenderTarget turned = new RenderTarget(width, height)) {
            screen.bind();
            paint.run();
            screen.unbind();
            turned.bind();
            painter.begin(width, height);
            painter.draw(screen.texture(), 0, 0, width, height, Painter.Blend.OPAQUE);
            painter.end();
            return read(turned);
        }
    }

    /** Reads the framebuffer that is bound, and binds the one before. */
    private static Bitmap read(RenderTarget target) {
        int width = target.width();
        int height = target.height();
        ByteBuffer pixels = ByteBuffer.allocateDirect(PixelLayout.RGBA.bytes(width, height));
        GLES30.glReadPixels(
                0, 0, width, height, GLES30.GL_RGBA, GLES30.GL_UNSIGNED_BYTE, pixels);
        target.unbind();
        Bitmap bitmap = Bitmap.createBitmap(width, height, Bitmap.Config.ARGB_8888);
        bitmap.copyPixelsFromBuffer(pixels);
        return bitmap;
    }
}
