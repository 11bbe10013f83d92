package org.vornrenderer;

import android.opengl.GLES30;

/** A texture of RGBA that GL draws into. Runs on the GL thread. */
final class RenderTarget implements AutoCloseable {
    private final Texture texture = new Texture();
    private final int[] framebuffer = new int[1];
    private final int[] before = new int[1];
    private final int width;
    private final int height;

    /** @throws RendererException if GL has no texture of that size */
    RenderTarget(int width, int height) {
        this.width = width;
        this.height = height;
        texture.allocate(GLES30.GL_RGBA8, width, height);
        GLES30.glGenFramebuffers(1, framebuffer, 0);
        bind();
        GLES30.glFramebufferTexture2D(
                GLES30.GL_FRAMEBUFFER,
                GLES30.GL_COLOR_ATTACHMENT0,
                GLES30.GL_TEXTURE_2D,
                texture.name(),
                0);
        unbind();
    }

    int texture() {
        return texture.name();
    }

    int width() {
        return width;
    }

    int height() {
        return height;
    }

    void bind() {
        GLES30.glGetIntegerv(GLES30.GL_FRAMEBUFFER_BINDING, before, 0);
        GLES30.glBindFramebuffer(GLES30.GL_FRAMEBUFFER, framebuffer[0]);
    }

    /** Binds what was bound before. */
    void unbind() {
        GLES30.glBindFramebuffer(GLES30.GL_FRAMEBUFFER, before[0]);
    }

    @Override
    public void close() {
        GLES30.glDeleteFramebuffers(1, framebuffer, 0);
        texture.free(false);
    }
}
