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
    RGBA(5, PixelLayout.RGBA);

    /** VERendererMode::modeType. */
    final int code;

    /** Of raw frames; null for compressed video. */
    final PixelLayout layout;

    VideoSource(int code, PixelLayout layout) {
        this.code = code;
        this.layout = layout;
    }

    /**
     * Whether the platform's decoder decodes the video.
     *
     * @return true for compressed video, false for raw frames
     */
    public boolean isCompressed() {
        return layout == null;
    }
}
