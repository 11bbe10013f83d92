package org.vornrenderer;

import java.util.function.LongSupplier;
import org.jetbrains.annotations.Nullable;

/** The time in a clip, in microseconds: the system's, or that of the application's sound. */
final class PlaybackClock {
    private static final int NS_PER_US = 1000;

    @Nullable private LongSupplier given;
    private long baseUs;
    private long startNs;
    private boolean running;

    void use(@Nullable LongSupplier clock) {
        baseUs = positionUs();
        startNs = System.nanoTime();
        given = clock;
    }

    long positionUs() {
        if (given != null) {
            return given.getAsLong();
        }
        return running ? baseUs + (System.nanoTime() - startNs) / NS_PER_US : baseUs;
    }

    void set(long timeUs) {
        baseUs = timeUs;
        startNs = System.nanoTime();
    }

    void run(boolean run) {
        if (run != running) {
            set(positionUs());
            running = run;
        }
    }
}
