package org.vornrenderer;

import android.graphics.SurfaceTexture;
import android.opengl.GLES30;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** What a camera, a player or another producer draws into a surface. Runs on the GL thread. */
final class SurfaceTextureSource implements PictureSource {
    private static final int NS_PER_US = 1000;

    private final float[] matrix = new float[16];
    private final int[] texture = new int[1];
    private SurfaceTexture surface;
    private int width;
    private int height;
    private boolean attached;
    private boolean lost;
    private boolean hasFrame;
    private Picture picture;

    /** Set on any thread. */
    private volatile boolean available;

    /**
     * A surface texture without a GL context. Any thread.
     *
     * @throws IllegalArgumentException if a side is not positive
     */
    @NotNull
    static SurfaceTexture make(int width, int height) {
        PixelLayout.RGBA.bytes(width, height); // Throws for such sizes.
        SurfaceTexture made = new SurfaceTexture(0);
        made.detachFromGLContext();
        made.setDefaultBufferSize(width, height);
        return made;
    }

    /** Shows what comes to a surface texture that {@link #make} made. */
    void show(@NotNull SurfaceTexture made, int newWidth, int newHeight) {
        surface = made;
        width = newWidth;
        height = newHeight;
        lost = false;
        hasFrame = false;
        made.setOnFrameAvailableListener(from -> available = true);
        available = true; // One may have come before.
    }

    @Override
    public boolean draw(@NotNull Look look) {
        if (lost) {
            throw new IllegalStateException("the surface texture was lost with the GL context");
        }
        if (!attached) {
            GLES30.glGenTextures(1, texture, 0);
            surface.attachToGLContext(texture[0]);
            attached = true;
        }
        boolean isNew = available && latch();
        if (!hasFrame) {
            return false;
        }
        boolean sideways = Math.abs(matrix[1]) > Math.abs(matrix[0]);
        open(sideways ? height : width, sideways ? width : height, look.rotation);
        picture.drawTexture(texture[0], matrix, look);
        return isNew;
    }

    /** Takes the newest frame. Returns whether there is one. */
    private boolean latch() {
        available = false;
        surface.updateTexImage();
        surface.getTransformMatrix(matrix);
        hasFrame = hasFrame || surface.getTimestamp() != 0;
        return hasFrame;
    }

    private void open(int uprightWidth, int uprightHeight, int rotation) {
        if (picture != null && !picture.fits(uprightWidth, uprightHeight, rotation)) {
            picture.close(false);
            picture = null;
        }
        if (picture == null) {
            picture =
                    Picture.open(
                            VideoSource.TEXTURE_EXTERNAL, uprightWidth, uprightHeight, rotation);
        }
    }

    @Override
    @Nullable
    public Picture picture() {
        return picture;
    }

    @Override
    public long timeUs() {
        return surface.getTimestamp() / NS_PER_US;
    }

    /** A surface texture that is detached keeps its frame. One that was not has no way back. */
    @Override
    public void free(boolean contextLost) {
        if (picture != null) {
            picture.close(contextLost);
            picture = null;
        }
        if (attached && contextLost) {
            lost = true;
        } else if (attached) {
            surface.detachFromGLContext(); // Deletes the texture.
        }
        attached = false;
        available = true;
    }

    @Override
    public void close() {
        free(false);
        surface.setOnFrameAvailableListener(null);
        surface.release();
    }
}
