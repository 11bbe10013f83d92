package org.vornrenderer;

import android.opengl.GLES30;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** A texture with a picture, and the renderer that draws there. Runs on the GL thread. */
final class Picture {
    private final int[] texture;
    private final VideoRenderer renderer;
    private final int rotation;

    private Picture(int[] texture, VideoRenderer renderer, int rotation) {
        this.texture = texture;
        this.renderer = renderer;
        this.rotation = rotation;
    }

    /**
     * A picture without content.
     *
     * @param width of the source; that of the picture if it is not turned to the side
     * @param rotation clockwise: 0, 90, 180 or 270 degrees
     * @throws RendererException if there is none; nothing is left behind
     */
    @NotNull
    static Picture open(@NotNull VideoSource source, int width, int height, int rotation) {
        boolean upright = rotation % 180 == 0;
        int[] texture = new int[1];
        GLES30.glGenTextures(1, texture, 0);
        try {
            VideoRenderer renderer =
                    new VideoRenderer.Builder(source, width, height)
                            .outputSize(upright ? width : height, upright ? height : width)
                            .destination(texture[0])
                            .build();
            renderer.setRotation(rotation);
            return new Picture(texture, renderer, rotation);
        } catch (RuntimeException e) {
            GLES30.glDeleteTextures(1, texture, 0);
            throw e;
        }
    }

    /** Whether the picture is one of such a source. */
    boolean fits(int sourceWidth, int sourceHeight, int sourceRotation) {
        return renderer.width() == sourceWidth
                && renderer.height() == sourceHeight
                && rotation == sourceRotation;
    }

    /** How far the picture is turned clockwise, in degrees. */
    int rotation() {
        return rotation;
    }

    int texture() {
        return texture[0];
    }

    int width() {
        return renderer.outputWidth();
    }

    int height() {
        return renderer.outputHeight();
    }

    @NotNull
    VideoRenderer renderer() {
        return renderer;
    }

    /** Draws what the decoder has. Returns whether it is another picture than before. */
    boolean draw(@NotNull Look look) {
        compose(look);
        return renderer.draw();
    }

    /** Draws a texture, as {@link VideoRenderer#drawTexture} does. */
    void drawTexture(int source, @Nullable float[] matrix, @NotNull Look look) {
        compose(look);
        renderer.drawTexture(source, matrix);
    }

    private void compose(Look look) {
        renderer.setMirrored(look.mirrored);
        renderer.setView(look.view.x(), look.view.y(), look.view.zoom());
        renderer.setMaskHidden(!look.mask.isShown());
        if (look.mask.isShown()) {
            renderer.setMaskTexture(look.mask.texture());
        }
    }

    void close(boolean contextLost) {
        if (contextLost) {
            renderer.closeAfterContextLoss();
            return;
        }
        renderer.close();
        GLES30.glDeleteTextures(1, texture, 0);
    }
}
