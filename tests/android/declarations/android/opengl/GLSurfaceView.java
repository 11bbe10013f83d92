package android.opengl;

import android.content.Context;
import android.view.View;
import javax.microedition.khronos.egl.EGLConfig;
import javax.microedition.khronos.opengles.GL10;

public class GLSurfaceView extends View {
    public interface Renderer {
        void onSurfaceCreated(GL10 gl, EGLConfig config);

        void onSurfaceChanged(GL10 gl, int width, int height);

        void onDrawFrame(GL10 gl);
    }

    public GLSurfaceView(Context context) {
        super(context);
    }

    public native void onPause();

    public native void onResume();

    public native void queueEvent(Runnable event);

    public native void setEGLContextClientVersion(int version);

    public native void setRenderer(Renderer renderer);
}
