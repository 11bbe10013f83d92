package android.os;

import java.util.PriorityQueue;

/** The messages of a thread, by their time. Messages are used again, so that posting makes no garbage. */
public final class Looper {
    private static final ThreadLocal<Looper> OF_THREAD = new ThreadLocal<>();
    private static final int NS_PER_MS = 1_000_000;

    private static final class Message implements Comparable<Message> {
        private Runnable action;
        private long dueNs;
        private long number;

        @Override
        public int compareTo(Message other) {
            long difference = dueNs == other.dueNs ? number - other.number : dueNs - other.dueNs;
            return Long.signum(difference);
        }
    }

    private final PriorityQueue<Message> messages = new PriorityQueue<>();
    private Message spare;
    private long posted;
    private boolean quitting;

    Looper() {}

    public static Looper myLooper() {
        return OF_THREAD.get();
    }

    /** Ends the thread when all messages that are due have run. */
    public synchronized void quitSafely() {
        quitting = true;
        notifyAll();
    }

    /** Returns false after quitSafely. */
    synchronized boolean post(Runnable action, long delayMillis) {
        if (quitting) {
            return false;
        }
        Message message = spare == null ? new Message() : spare;
        spare = null;
        message.action = action;
        message.dueNs = System.nanoTime() + delayMillis * NS_PER_MS;
        message.number = posted++;
        messages.add(message);
        notifyAll();
        return true;
    }

    void loop() {
        OF_THREAD.set(this);
        for (Runnable action = next(); action != null; action = next()) {
            action.run();
        }
    }

    /** Null at the end. */
    private synchronized Runnable next() {
        while (true) {
            Message message = messages.peek();
            long waitNs = message == null ? Long.MAX_VALUE : message.dueNs - System.nanoTime();
            if (waitNs <= 0) {
                return take();
            }
            if (quitting) {
                return null;
            }
            pause(message == null ? 0 : Math.max(1, waitNs / NS_PER_MS));
        }
    }

    private Runnable take() {
        spare = messages.poll();
        Runnable action = spare.action;
        spare.action = null;
        return action;
    }

    private void pause(long millis) {
        try {
            wait(millis);
        } catch (InterruptedException e) {
            throw new IllegalStateException(e);
        }
    }
}
