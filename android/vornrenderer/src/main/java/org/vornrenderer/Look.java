package org.vornrenderer;

import org.jetbrains.annotations.NotNull;

/** How an engine shows its pictures. */
final class Look {
    final ViewPosition view = new ViewPosition();
    final MaskLayer mask = new MaskLayer();
    @NotNull ScaleMode scaleMode = ScaleMode.FIT;
    int borderColor;
    boolean mirrored;

    /** Clockwise: 0, 90, 180 or 270 degrees. */
    int rotation;
}
