package org.vornrenderer;

import android.graphics.Bitmap;
import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** Passes pixels on to the GL thread: the newest replace those that were not taken yet. */
final class PixelSlot {
    private Pixels waiting;
    private Pixels spare;

    /** As {@link Pixels#copy(Bitmap)} does. Any thread. */
    void offer(@NotNull Bitmap bitmap) {
        Pixels next = spare();
        next.copy(bitmap);
        put(next);
    }

    /** As the other method of {@link Pixels} does. Any thread. */
    void offer(
            @NotNull ByteBuffer rows, @NotNull PixelLayout layout, int width, int height,
            int rowBytes) {
        Pixels next = spare();
        next.copy(rows, layout, width, height, rowBytes);
        put(next);
    }

    /** Null if there are no new ones. */
    @Nullable
    synchronized Pixels take() {
        Pixels taken = waiting;
        waiting = null;
        return taken;
    }

    /** For pixels that are no longer of use. */
    synchronized void giveBack(@NotNull Pixels pixels) {
        spare = pixels;
    }

    /** Frees the memory that would be used again. */
    synchronized void trim() {
        spare = null;
    }

    private synchronized Pixels spare() {
        Pixels taken = spare;
        spare = null;
        return taken != null ? taken : new Pixels();
    }

    private synchronized void put(Pixels next) {
        if (waiting != null) {
            spare = waiting;
        }
        waiting = next;
    }
}
