package org.vornrenderer;

import android.opengl.GLES30;

/** A texture of RGBA that GL draws into. Runs on the GL thread. */
final class RenderTarget implements AutoCloseable {
    private final int[] texture = new int[1];
    private final int[] framebuffer = new int[1];
    private final int[] before = new int[1];

    RenderTarget(int width, int height) {
        GLES30.glGenTextures(1, texture, 0);
        PixelTexture.bindSmooth(texture[0]);
        GLES30.glTexStorage2D(GLES30.GL_TEXTURE_2D, 1, GLES30.GL_RGBA8, width, height);
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, 0);
        GLES30.glGenFramebuffers(1, framebuffer, 0);
        bind();
        GLES30.glFramebufferTexture2D(
                GLES30.GL_FRAMEBUFFER,
                GLES30.GL_COLOR_ATTACHMENT0,
                GLES30.GL_TEXTURE_2D,
                texture[0],
                0);
        unbind();
    }

    int texture() {
        return texture[0];
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
        unbind();
        GLES30.glDeleteFramebuffers(1, framebuffer, 0);
        GLES30.glDeleteTextures(1, texture, 0);
    }
}
