package org.vornrenderer;

import android.content.Context;
import android.graphics.Bitmap;
import android.graphics.SurfaceTexture;
import android.media.Image;
import android.net.Uri;
import java.io.FileDescriptor;
import java.nio.ByteBuffer;
import java.util.Objects;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** The calls of an engine for what it shows. */
abstract class SourceEngine extends ClipEngine {
    /** What is shown; null for nothing. */
    @Nullable PictureSource source;

    /** What is shown had its first picture. */
    boolean started;

    boolean suspended;

    private final StillSource stills = new StillSource();
    private final ImageSource images = new ImageSource();
    private final SurfaceTextureSource surfaces = new SurfaceTextureSource();
    private final ImageSlot imageSlot = new ImageSlot();

    /** Shows the pixels in the slot. Kept, so that a call makes no garbage. */
    final Runnable takeStill =
            () -> {
                if (stills.takePixels()) {
                    change(stills);
                }
            };

    /** Shows the image in the slot. */
    final Runnable takeImage =
            () -> {
                Image image = imageSlot.take();
                if (image != null) {
                    show(image);
                }
            };

    SourceEngine(@NotNull VideoEngine.Listener listener) {
        super(listener);
    }

    /** Where other threads put pixels before they call {@link #takeStill} on the GL thread. */
    @NotNull
    final PixelSlot stillSlot() {
        return stills.slot();
    }

    /** Where other threads put an image before they call {@link #takeImage} on the GL thread. */
    @NotNull
    final ImageSlot imageSlot() {
        return imageSlot;
    }

    /** Replaces what is shown; null for nothing. */
    final void change(PictureSource next) {
        if (source == next) {
            return;
        }
        if (source != null) {
            source.close();
        }
        source = next;
        started = false;
    }

    /**
     * Plays a clip from its start. It is opened by the next {@link VideoEngine#draw}.
     *
     * @param context to resolve the address
     * @param clip the address
     */
    public final void play(@NotNull Context context, @NotNull Uri clip) {
        Objects.requireNonNull(clip);
        play(extractor -> extractor.setDataSource(context, clip, null));
    }

    /**
     * Plays a clip from its start. It is opened by the next {@link VideoEngine#draw}.
     *
     * @param file stays open until the engine is closed or shows something else
     * @param offset of the clip in the file, in bytes
     * @param length of the clip, in bytes
     */
    public final void play(@NotNull FileDescriptor file, long offset, long length) {
        Objects.requireNonNull(file);
        play(extractor -> extractor.setDataSource(file, offset, length));
    }

    private void play(ClipFeed.Source clip) {
        change(null);
        change(clips);
        clips.play(clip);
    }

    /**
     * Shows a bitmap.
     *
     * @param picture copied; translucent parts are over black
     * @throws IllegalArgumentException if it is recycled
     */
    public final void show(@NotNull Bitmap picture) {
        stills.slot().offer(picture);
        takeStill.run();
    }

    /**
     * Shows pixels. Memory is used again, so frames of one size make no garbage.
     *
     * @param pixels direct or not; read from its position, which stays, and copied: rows without
     *     padding, first row first; alpha is ignored
     * @param layout of the pixels
     * @param width in pixels
     * @param height in pixels
     * @throws IllegalArgumentException if a size is not positive, or the buffer ends too early
     */
    public final void show(
            @NotNull ByteBuffer pixels, @NotNull PixelLayout layout, int width, int height) {
        show(pixels, layout, width, height, layout.bytes(width, 1));
    }

    /**
     * Shows pixels whose rows have padding.
     *
     * @param pixels as in {@link #show(ByteBuffer, PixelLayout, int, int)}
     * @param layout of the pixels
     * @param width in pixels
     * @param height in pixels
     * @param rowBytes from the begin of a row to that of the next; the last row needs no padding
     * @throws IllegalArgumentException if a size is not positive, a row is longer than rowBytes, or
     *     the buffer ends too early
     */
    public final void show(
            @NotNull ByteBuffer pixels,
            @NotNull PixelLayout layout,
            int width,
            int height,
            int rowBytes) {
        stills.slot().offer(pixels, layout, width, height, rowBytes);
        takeStill.run();
    }

    /**
     * Shows an image of a camera or a decoder, in the colors that it states from API level 33 on, else
     * in those of cameras (BT.601, full range). Its crop is that of the first image of its size. After a
     * pause or a context loss the next image shows.
     *
     * @param image of YUV_420_888 or NV21; the engine closes it
     */
    public final void show(@NotNull Image image) {
        Objects.requireNonNull(image);
        if (suspended) {
            image.close();
            return;
        }
        change(images);
        images.show(image);
    }

    /**
     * Shows what a camera, a player or another producer draws into a surface, turned and cropped as its
     * matrix says.
     *
     * @param width of the producer's buffers in pixels; the default size that cameras choose theirs by
     * @param height likewise
     * @return for {@code new Surface(…)}; released when the engine shows something else. If the context
     *     is lost without {@link VideoEngine#suspend} before, the listener gets an error, and another
     *     is needed
     * @throws IllegalArgumentException if a side is not positive
     */
    @NotNull
    public final SurfaceTexture surfaceTexture(int width, int height) {
        SurfaceTexture made = SurfaceTextureSource.make(width, height);
        show(made, width, height);
        return made;
    }

    final void show(@NotNull SurfaceTexture made, int width, int height) {
        change(null);
        change(surfaces);
        surfaces.show(made, width, height);
    }
}
