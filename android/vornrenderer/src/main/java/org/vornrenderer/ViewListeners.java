package org.vornrenderer;

import android.os.Build;
import android.view.View;
import java.util.function.Consumer;
import java.util.function.LongConsumer;
import org.jetbrains.annotations.NotNull;

/** Passes the engine's events on: those of frames at once, the others on the UI thread. */
final class ViewListeners implements VideoEngine.Listener {
    private final View view;
    volatile Consumer<Exception> error;
    volatile Consumer<Boolean> playing;
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

    /** Screen readers say it, too. */
    @Override
    public void onPlaying(boolean isPlaying) {
        view.post(
                () -> {
                    if (Build.VERSION.SDK_INT >= Build.VERSION_CODES.R) {
                        int state = isPlaying ? R.string.vorn_playing : R.string.vorn_paused;
                        view.setStateDescription(view.getContext().getString(state));
                    }
                    if (playing != null) {
                        playing.accept(isPlaying);
                    }
                });
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
