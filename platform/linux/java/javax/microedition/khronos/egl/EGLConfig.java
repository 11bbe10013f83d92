package javax.microedition.khronos.egl;

/** Given to renderers, which do not use it. */
public abstract class EGLConfig {}
