package org.vornrenderer;

/** How a picture fills a screen of another shape. */
public enum ScaleMode {
    /** The whole picture, with borders. */
    FIT,
    /** The whole screen; what does not fit is cut off. */
    CROP,
    /** Both whole; the picture is stretched. */
    STRETCH
}
