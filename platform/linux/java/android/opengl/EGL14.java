package android.opengl;

import android.graphics.SurfaceTexture;

/** EGL 1.4, as far as needed. The window of a SurfaceTexture is a surface in memory. */
public class EGL14 {
    public static final int EGL_ALPHA_SIZE = 0x3021;
    public static final int EGL_BAD_NATIVE_WINDOW = 0x300B;
    public static final int EGL_BAD_SURFACE = 0x300D;
    public static final int EGL_BLUE_SIZE = 0x3022;
    public static final int EGL_CONTEXT_CLIENT_VERSION = 0x3098;
    public static final int EGL_CONTEXT_LOST = 0x300E;
    public static final int EGL_DEFAULT_DISPLAY = 0;
    public static final int EGL_GREEN_SIZE = 0x3023;
    public static final int EGL_HEIGHT = 0x3056;
    public static final int EGL_NONE = 0x3038;
    public static final int EGL_PBUFFER_BIT = 0x01;
    public static final int EGL_RED_SIZE = 0x3024;
    public static final int EGL_RENDERABLE_TYPE = 0x3040;
    public static final int EGL_SUCCESS = 0x3000;
    public static final int EGL_SURFACE_TYPE = 0x3033;
    public static final int EGL_WIDTH = 0x3057;
    public static final int EGL_WINDOW_BIT = 0x04;

    public static EGLContext EGL_NO_CONTEXT = new EGLContext(0);
    public static EGLSurface EGL_NO_SURFACE = new EGLSurface(0);

    static {
        System.loadLibrary("android");
    }

    /** The next swap of any thread finds its context lost. */
    static volatile boolean contextIsLost;

    /** There is no kind of surfaces for OpenGL ES 3. */
    static volatile boolean configIsMissing;

    private static final ThreadLocal<Integer> error = ThreadLocal.withInitial(() -> EGL_SUCCESS);

    private static boolean fail(int code) {
        error.set(code);
        return false;
    }

    public static int eglGetError() {
        int noted = error.get();
        if (noted != EGL_SUCCESS) {
            error.remove();
            return noted;
        }
        return nativeError();
    }

    public static EGLDisplay eglGetDisplay(int display_id) {
        return new EGLDisplay(nativeDisplay());
    }

    public static boolean eglInitialize(
            EGLDisplay dpy, int[] major, int majorOffset, int[] minor, int minorOffset) {
        return nativeInitialize(dpy.handle);
    }

    public static boolean eglChooseConfig(
            EGLDisplay dpy, int[] attrib_list, int attrib_listOffset, EGLConfig[] configs,
            int configsOffset, int config_size, int[] num_config, int num_configOffset) {
        long config = configIsMissing ? 0 : nativeConfig(dpy.handle, attrib_list);
        num_config[num_configOffset] = config == 0 ? 0 : 1;
        configs[configsOffset] = new EGLConfig(config);
        return true;
    }

    public static EGLContext eglCreateContext(
            EGLDisplay dpy, EGLConfig config, EGLContext share_context, int[] attrib_list, int offset) {
        return new EGLContext(nativeContext(dpy.handle, config.handle, attrib_list));
    }

    public static EGLSurface eglCreatePbufferSurface(
            EGLDisplay dpy, EGLConfig config, int[] attrib_list, int offset) {
        return new EGLSurface(nativePbuffer(dpy.handle, config.handle, attrib_list));
    }

    /** The window is a SurfaceTexture. */
    public static EGLSurface eglCreateWindowSurface(
            EGLDisplay dpy, EGLConfig config, Object win, int[] attrib_list, int offset) {
        SurfaceTexture window = (SurfaceTexture) win;
        EGLSurface surface = new EGLSurface(nativeWindow(dpy.handle, config.handle, window));
        surface.window = window;
        if (surface.handle == 0) {
            fail(EGL_BAD_NATIVE_WINDOW);
            return EGL_NO_SURFACE;
        }
        return surface;
    }

    public static boolean eglMakeCurrent(
            EGLDisplay dpy, EGLSurface draw, EGLSurface read, EGLContext ctx) {
        return nativeMakeCurrent(dpy.handle, draw.handle, read.handle, ctx.handle);
    }

    public static boolean eglSwapBuffers(EGLDisplay dpy, EGLSurface surface) {
        if (contextIsLost) {
            contextIsLost = false;
            return fail(EGL_CONTEXT_LOST);
        }
        if (surface.window != null && surface.window.isReleased()) {
            return fail(EGL_BAD_SURFACE);
        }
        return nativeSwap(dpy.handle, surface.handle);
    }

    public static boolean eglDestroySurface(EGLDisplay dpy, EGLSurface surface) {
        return nativeDestroySurface(dpy.handle, surface.handle);
    }

    public static boolean eglDestroyContext(EGLDisplay dpy, EGLContext ctx) {
        return nativeDestroyContext(dpy.handle, ctx.handle);
    }

    public static boolean eglReleaseThread() {
        return nativeReleaseThread();
    }

    private static native int nativeError();

    private static native long nativeDisplay();

    private static native boolean nativeInitialize(long display);

    private static native long nativeConfig(long display, int[] attributes);

    private static native long nativeContext(long display, long config, int[] attributes);

    private static native long nativePbuffer(long display, long config, int[] attributes);

    private static native long nativeWindow(long display, long config, SurfaceTexture window);

    private static native boolean nativeMakeCurrent(long display, long draw, long read, long context);

    private static native boolean nativeSwap(long display, long surface);

    private static native boolean nativeDestroySurface(long display, long surface);

    private static native boolean nativeDestroyContext(long display, long context);

    private static native boolean nativeReleaseThread();
}
