package android.media;

import android.os.Handler;

/** Passes images of a producer on. A host plays the producer. */
public class ImageReader {
    public interface OnImageAvailableListener {
        void onImageAvailable(ImageReader reader);
    }

    private OnImageAvailableListener listener;
    private Handler handler;
    private Image newest;

    private ImageReader() {}

    public static ImageReader newInstance(int width, int height, int format, int maxImages) {
        return new ImageReader();
    }

    public synchronized void setOnImageAvailableListener(
            OnImageAvailableListener newListener, Handler newHandler) {
        listener = newListener;
        handler = newHandler;
    }

    /** Null if there is no new one. */
    public synchronized Image acquireLatestImage() {
        Image taken = newest;
        newest = null;
        return taken;
    }

    /** What a camera does. */
    synchronized void deliver(Image image) {
        if (newest != null) {
            newest.close();
        }
        newest = image;
        handler.post(() -> listener.onImageAvailable(this));
    }
}
