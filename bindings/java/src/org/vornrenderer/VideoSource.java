package org.vornrenderer;

/** What a renderer is given. */
public enum VideoSource {
    /** H.264 access units with start codes, decoded by the platform. */
    H264(2, null),
    /** Motion-JPEG pictures, decoded by the platform. */
    MJPEG(6, null),
    /** Raw frames, 3 bytes a pixel. */
    RGB(3, PixelLayout.RGB),
    /** Raw frames, 4 bytes a pixel. */
    RGBA(5, PixelLayout.RGBA),
    /** The application's GL_TEXTURE_2D. */
    TEXTURE_2D(16, null),
    /** The application's GL_TEXTURE_EXTERNAL_OES, for example of a SurfaceTexture. */
    TEXTURE_EXTERNAL(17, null);

    /** VERendererOptions::source. */
    final int code;

    /** Of raw frames; null for all others. */
    final PixelLayout layout;

    VideoSource(int code, PixelLayout layout) {
        this.code = code;
        this.layout = layout;
    }

    /**
     * Whether the platform's decoder decodes the video.
     *
     * @return true for compressed video, false for raw frames and textures
     */
    public boolean isCompressed() {
        return this == H264 || this == MJPEG;
    }
}
