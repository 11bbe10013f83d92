package javax.microedition.khronos.opengles;

/** Given to renderers, which do not use it. */
public interface GL10 {}
