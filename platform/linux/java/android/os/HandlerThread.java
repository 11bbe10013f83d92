package android.os;

/** A thread with a looper. */
public class HandlerThread extends Thread {
    private final Looper looper = new Looper();

    public HandlerThread(String name) {
        super(name);
        setDaemon(true);
    }

    public Looper getLooper() {
        return looper;
    }

    public boolean quitSafely() {
        looper.quitSafely();
        return true;
    }

    @Override
    public void run() {
        looper.loop();
    }
}
