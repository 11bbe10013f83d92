package org.vornrenderer;

import android.view.View;
import java.util.function.Consumer;
import java.util.function.LongConsumer;
import org.jetbrains.annotations.NotNull;

/** Passes the engine's events on: those of frames at once, the others on the UI thread. */
final class ViewListeners implements VideoEngine.Listener {
    private final View view;
    volatile Consumer<Exception> error;
    volatile Runnable firstFrame;
    volatile Runnable end;
    volatile LongConsumer frame;

    ViewListeners(@NotNull View view) {
        this.view = view;
    }

    /** Those of a view. */
    static ViewListeners of(@NotNull VideoPlayer player) {
        return (ViewListeners) player.engine().listener();
    }

    @Override
    public void onStart() {
        post(firstFrame);
    }

    @Override
    public void onFrame(long timeUs) {
        LongConsumer listener = frame;
        if (listener != null) {
            listener.accept(timeUs);
        }
    }

    @Override
    public void onEnd() {
        post(end);
    }

    @Override
    public void onError(@NotNull Exception reason) {
        Consumer<Exception> listener = error;
        if (listener != null) {
            view.post(() -> listener.accept(reason));
        }
    }

    private void post(Runnable listener) {
        if (listener != null) {
            view.post(listener);
        }
    }
}
