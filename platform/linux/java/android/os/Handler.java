package android.os;

/** Posts to the thread of a looper. */
public class Handler {
    private final Looper looper;

    public Handler(Looper looper) {
        this.looper = looper;
    }

    /** @return false if the thread has ended or will end before */
    public final boolean post(Runnable r) {
        return looper.post(r, 0);
    }

    public final boolean postDelayed(Runnable r, long delayMillis) {
        return looper.post(r, delayMillis);
    }
}
