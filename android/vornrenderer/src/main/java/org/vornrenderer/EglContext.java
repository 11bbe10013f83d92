package org.vornrenderer;

import android.graphics.SurfaceTexture;
import android.opengl.EGL14;
import android.opengl.EGLConfig;
import android.opengl.EGLContext;
import android.opengl.EGLDisplay;
import android.opengl.EGLExt;
import android.opengl.EGLSurface;
import org.jetbrains.annotations.NotNull;

/**
 * A GL context of version 3, current on the thread that made it. It draws into a window, and while
 * there is none, into a pixel: what is freed then needs the context, too.
 */
final class EglContext {
    private static final int[] CONFIG = {
        EGL14.EGL_SURFACE_TYPE, EGL14.EGL_WINDOW_BIT | EGL14.EGL_PBUFFER_BIT,
        EGL14.EGL_RENDERABLE_TYPE, EGLExt.EGL_OPENGL_ES3_BIT_KHR,
        EGL14.EGL_RED_SIZE, 8,
        EGL14.EGL_GREEN_SIZE, 8,
        EGL14.EGL_BLUE_SIZE, 8,
        EGL14.EGL_ALPHA_SIZE, 8,
        EGL14.EGL_NONE
    };
    private static final int[] VERSION = {EGL14.EGL_CONTEXT_CLIENT_VERSION, 3, EGL14.EGL_NONE};
    private static final int[] PIXEL = {
        EGL14.EGL_WIDTH, 1, EGL14.EGL_HEIGHT, 1, EGL14.EGL_NONE
    };
    private static final int[] NO_ATTRIBUTES = {EGL14.EGL_NONE};

    /** What became of a frame. */
    enum Swap {
        SHOWN,
        WINDOW_GONE,
        CONTEXT_LOST
    }

    private final EGLDisplay display = EGL14.eglGetDisplay(EGL14.EGL_DEFAULT_DISPLAY);
    private final EGLConfig config;
    private final EGLContext context;
    private final EGLSurface pixel;
    private EGLSurface window = EGL14.EGL_NO_SURFACE;

    /** @throws RendererException if the device has no such context */
    EglContext() {
        EGL14.eglInitialize(display, new int[1], 0, new int[1], 0);
        EGLConfig[] configs = new EGLConfig[1];
        int[] count = new int[1];
        EGL14.eglChooseConfig(display, CONFIG, 0, configs, 0, 1, count, 0);
        if (count[0] == 0) {
            throw failure("the device has no OpenGL ES 3");
        }
        config = configs[0];
        context = EGL14.eglCreateContext(display, config, EGL14.EGL_NO_CONTEXT, VERSION, 0);
        pixel = EGL14.eglCreatePbufferSurface(display, config, PIXEL, 0);
        if (!makeCurrent(pixel)) {
            RendererException failure = failure("no GL context");
            close();
            throw failure;
        }
    }

    boolean hasWindow() {
        return window != EGL14.EGL_NO_SURFACE;
    }

    /** Draws into a window from now on. Returns false if it is gone. */
    boolean enter(@NotNull SurfaceTexture texture) {
        window = EGL14.eglCreateWindowSurface(display, config, texture, NO_ATTRIBUTES, 0);
        if (hasWindow() && makeCurrent(window)) {
            return true;
        }
        leave();
        return false;
    }

    /** Lets go of the window. */
    void leave() {
        makeCurrent(pixel);
        if (hasWindow()) {
            EGL14.eglDestroySurface(display, window);
            window = EGL14.EGL_NO_SURFACE;
        }
    }

    /** Shows in the window what was drawn. */
    @NotNull
    Swap swap() {
        if (EGL14.eglSwapBuffers(display, window)) {
            return Swap.SHOWN;
        }
        return EGL14.eglGetError() == EGL14.EGL_CONTEXT_LOST ? Swap.CONTEXT_LOST : Swap.WINDOW_GONE;
    }

    void close() {
        leave();
        EGL14.eglMakeCurrent(
                display, EGL14.EGL_NO_SURFACE, EGL14.EGL_NO_SURFACE, EGL14.EGL_NO_CONTEXT);
        EGL14.eglDestroySurface(display, pixel);
        EGL14.eglDestroyContext(display, context);
        EGL14.eglReleaseThread();
    }

    private boolean makeCurrent(EGLSurface surface) {
        return EGL14.eglMakeCurrent(display, surface, surface, context);
    }

    private static RendererException failure(String text) {
        String error = ": EGL error 0x" + Integer.toHexString(EGL14.eglGetError());
        return new RendererException(RendererException.Reason.NO_CONTEXT, text + error, null);
    }
}
