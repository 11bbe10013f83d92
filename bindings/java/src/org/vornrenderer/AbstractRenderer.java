package org.vornrenderer;

import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** The lifetime of a renderer, its thread, and what it was built with. */
abstract class AbstractRenderer implements AutoCloseable {
    private final Thread thread = Thread.currentThread();
    private final CloseReminder reminder;
    private final Settings settings;
    private long handle;

    AbstractRenderer(Settings settings) {
        this.settings = settings;
        handle = settings.create();
        reminder = new CloseReminder(); // Not if creation throws.
    }

    /**
     * What the renderer is given.
     *
     * @return the source of the builder
     */
    @NotNull
    public final VideoSource source() {
        return settings.source;
    }

    /**
     * The width of frames.
     *
     * @return pixels
     */
    public final int width() {
        return settings.width;
    }

    /**
     * The height of frames.
     *
     * @return pixels
     */
    public final int height() {
        return settings.height;
    }

    /**
     * The width of the texture that is drawn into.
     *
     * @return pixels
     */
    public final int outputWidth() {
        return settings.outputWidth;
    }

    /**
     * The height of the texture that is drawn into.
     *
     * @return pixels
     */
    public final int outputHeight() {
        return settings.outputHeight;
    }

    /**
     * The texture that is drawn into.
     *
     * @return GL name
     */
    public final int destination() {
        return settings.texture;
    }

    /**
     * The layout of the texture that is drawn into.
     *
     * @return RGB or RGBA
     */
    @NotNull
    public final PixelLayout destinationLayout() {
        return settings.destination;
    }

    /**
     * The layout of masks.
     *
     * @return null if the renderer takes no masks
     */
    @Nullable
    public final PixelLayout maskLayout() {
        return settings.mask;
    }

    /**
     * The width of masks.
     *
     * @return pixels; 0 if the renderer takes no masks
     */
    public final int maskWidth() {
        return settings.maskWidth;
    }

    /**
     * The height of masks.
     *
     * @return pixels; 0 if the renderer takes no masks
     */
    public final int maskHeight() {
        return settings.maskHeight;
    }

    /**
     * Whether raw frames are drawn one call after the one that brings them.
     *
     * @return true after {@link VideoRenderer.Builder#drawLater}
     */
    public final boolean drawsLater() {
        return settings.drawLater;
    }

    /**
     * Whether each raw frame is drawn only by the call that brings it.
     *
     * @return true after {@link VideoRenderer.Builder#drawOnce}
     */
    public final boolean drawsOnce() {
        return settings.drawOnce;
    }

    /**
     * Whether draws give back all GL state that they change.
     *
     * @return what {@link VideoRenderer.Builder#keepState} set
     */
    public final boolean keepsState() {
        return settings.keepState;
    }

    /**
     * Frees the renderer, with its context current. A second call does nothing.
     *
     * @throws IllegalStateException on another thread than the one that built the renderer
     */
    @Override
    public final void close() {
        close(false);
    }

    /**
     * Frees the renderer without a GL call, after its context was lost. A second call does nothing.
     *
     * @throws IllegalStateException on another thread than the one that built the renderer
     */
    public final void closeAfterContextLoss() {
        close(true);
    }

    private void close(boolean contextLost) {
        checkThread();
        long closing = handle;
        handle = 0;
        if (closing != 0) {
            reminder.close();
            NativeRenderer.destroy(closing, contextLost);
        }
    }

    /**
     * The native renderer.
     *
     * @throws IllegalStateException if the renderer is closed or belongs to another thread
     */
    final long handle() {
        checkThread();
        if (handle == 0) {
            throw new IllegalStateException("the renderer is closed");
        }
        return handle;
    }

    private void checkThread() {
        Thread caller = Thread.currentThread();
        if (caller != thread) {
            throw new IllegalStateException(
                    "the renderer belongs to " + thread.getName() + ", not to " + caller.getName());
        }
    }
}
