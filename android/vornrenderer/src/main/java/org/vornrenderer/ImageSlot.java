package org.vornrenderer;

import android.media.Image;
import java.util.concurrent.atomic.AtomicReference;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** Passes images on to the GL thread: the newest replaces one that was not taken yet. */
final class ImageSlot {
    private final AtomicReference<Image> waiting = new AtomicReference<>();

    /** Any thread. */
    void offer(@NotNull Image image) {
        Image replaced = waiting.getAndSet(image);
        if (replaced != null) {
            replaced.close();
        }
    }

    /** Null if there is no new one. */
    @Nullable
    Image take() {
        return waiting.getAndSet(null);
    }
}
