package org.vornrenderer;

import org.jetbrains.annotations.NotNull;

/** GL, the decoder or the memory does not allow what was asked for. Nothing changes then. */
public final class RendererException extends IllegalStateException {
    private static final long serialVersionUID = 1;
    private static final int WRONG_ARGUMENT = -1;

    /** What is missing or failed. */
    public enum Reason {
        /** The process or GL is out of memory. The call may be repeated. */
        OUT_OF_MEMORY(-4),
        /** No GL context is current on the thread. */
        NO_CONTEXT(-5),
        /** The GL context lacks entries of OpenGL ES 3.0. */
        NO_GL_ENTRY(-6),
        /** GL has no external textures, which compressed video needs. */
        NO_EXTERNAL_TEXTURES(-7),
        /** GL refused a shader or the destination. */
        GL(-8),
        /** The picture or the mask is larger than GL allows. */
        PICTURE_SIZE(-9),
        /** Android's Surface or SurfaceTexture threw an exception. */
        PLATFORM(-10),
        /** The platform has no decoder for this kind of video. */
        NO_DECODER(-11),
        /** The decoder failed. */
        DECODER_FAILED(-12),
        /** The platform took the decoder away. Build a new renderer. */
        DECODER_RECLAIMED(-13),
        /** None of the others. */
        OTHER(0);

        private final int code;

        Reason(int code) {
            this.code = code;
        }

        static Reason of(int result) {
            for (Reason reason : values()) {
                if (reason.code == result) {
                    return reason;
                }
            }
            return OTHER;
        }
    }

    /** What is missing or failed. */
    private final Reason reason;

    RendererException(Reason reason, String message, Throwable cause) {
        super(message, cause);
        this.reason = reason;
    }

    /**
     * The reason.
     *
     * @return what is missing or failed
     */
    @NotNull
    public Reason reason() {
        return reason;
    }

    /** Throws if a result of the native part is an error. */
    static void check(int result) {
        if (result < 0) {
            throw of(result);
        }
    }

    /** What to throw for an error of the native part. */
    static RuntimeException of(int result) {
        String text = NativeRenderer.resultText(result);
        return result == WRONG_ARGUMENT
                ? new IllegalArgumentException(text)
                : new RendererException(Reason.of(result), text, null);
    }
}
