package org.vornrenderer;

import android.graphics.Bitmap;
import android.opengl.GLES30;
import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;

/** Copies a picture out of GL. Runs on the GL thread. */
final class Capture {
    private Capture() {}

    /** The picture as it shows: opaque, or transparent where a mask hides it. */
    @NotNull
    static Bitmap take(@NotNull Picture picture, @NotNull Painter painter, boolean masked) {
        int width = picture.width();
        int height = picture.height();
        Bitmap bitmap = Bitmap.createBitmap(width, height, Bitmap.Config.ARGB_8888);
        ByteBuffer pixels = ByteBuffer.allocateDirect(PixelLayout.RGBA.bytes(width, height));
        try (RenderTarget target = new RenderTarget(width, height)) {
            target.bind();
            GLES30.glClearColor(0, 0, 0, masked ? 0 : 1);
            GLES30.glClear(GLES30.GL_COLOR_BUFFER_BIT);
            painter.begin(width, height);
            // GL reads from the bottom, where the first row comes to.
            Painter.Blend blend = masked ? Painter.Blend.STRAIGHT : Painter.Blend.OPAQUE;
            painter.draw(picture.texture(), 0, height, width, -height, blend);
            painter.end();
            GLES30.glReadPixels(
                    0, 0, width, height, GLES30.GL_RGBA, GLES30.GL_UNSIGNED_BYTE, pixels);
            target.unbind();
        }
        bitmap.copyPixelsFromBuffer(pixels);
        return bitmap;
    }
}
