package org.vornrenderer;

/** What a renderer is built with. A builder changes its own; a renderer's stay. */
final class Settings {
    final VideoSource source;
    final int width;
    final int height;
    int texture;
    int outputWidth;
    int outputHeight;
    PixelLayout destination = PixelLayout.RGBA;
    PixelLayout mask;
    int maskWidth;
    int maskHeight;
    boolean drawLater;
    boolean drawOnce;
    boolean keepState = true;

    Settings(VideoSource source, int width, int height) {
        frameLayout(source).bytes(width, height); // Throws if no buffer can hold a frame.
        this.source = source;
        this.width = width;
        this.height = height;
        outputWidth = width;
        outputHeight = height;
    }

    Settings(Settings other) {
        this(other.source, other.width, other.height);
        texture = other.texture;
        outputWidth = other.outputWidth;
        outputHeight = other.outputHeight;
        destination = other.destination;
        mask = other.mask;
        maskWidth = other.maskWidth;
        maskHeight = other.maskHeight;
        drawLater = other.drawLater;
        drawOnce = other.drawOnce;
        keepState = other.keepState;
    }

    /** 0 if the renderer takes no frames. */
    int frameBytes() {
        return source.layout == null ? 0 : source.layout.bytes(width, height);
    }

    /** 0 if the renderer takes no masks. */
    int maskBytes() {
        return mask == null ? 0 : mask.bytes(maskWidth, maskHeight);
    }

    /** The native renderer. */
    long create() {
        if (texture == 0) {
            throw new IllegalStateException("the renderer has no destination");
        }
        if (source.isCompressed()) {
            checkPlatform();
        }
        long[] created = new long[1];
        RendererException.check(
                NativeRenderer.create(
                        texture,
                        destination.destinationCode,
                        source.code,
                        width,
                        height,
                        outputWidth,
                        outputHeight,
                        mask == null ? 0 : mask.maskCode,
                        maskWidth,
                        maskHeight,
                        drawLater,
                        drawOnce,
                        keepState,
                        created));
        return created[0];
    }

    private static PixelLayout frameLayout(VideoSource source) {
        return source.layout == null ? PixelLayout.RGBA : source.layout;
    }

    /** The classes are looked up here because the exception names the one that is missing. */
    private static void checkPlatform() {
        try {
            Class.forName("android.graphics.SurfaceTexture");
            Class.forName("android.view.Surface");
        } catch (ClassNotFoundException | LinkageError e) {
            throw new RendererException(
                    RendererException.Reason.NO_DECODER, "no decoder on this Java platform", e);
        }
    }
}
