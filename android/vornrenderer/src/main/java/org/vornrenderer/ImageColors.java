package org.vornrenderer;

import android.hardware.DataSpace;
import android.media.Image;
import android.os.Build;
import org.jetbrains.annotations.NotNull;

/**
 * How the colors of an image are coded. Those that do not say it, and all before API level 33, are
 * taken for those of a camera: BT.601 with full range.
 */
enum ImageColors {
    BT601(0.299F, 0.114F),
    BT709(0.2126F, 0.0722F),
    BT2020(0.2627F, 0.0593F);

    /** V in red, U in green, V in green, U in blue, for luma and chroma of the same scale. */
    final float vInRed;
    final float uInGreen;
    final float vInGreen;
    final float uInBlue;

    ImageColors(float red, float blue) {
        float green = 1 - red - blue;
        vInRed = 2 * (1 - red);
        uInBlue = 2 * (1 - blue);
        uInGreen = -uInBlue * blue / green;
        vInGreen = -vInRed * red / green;
    }

    @NotNull
    static ImageColors of(@NotNull Image image) {
        if (Build.VERSION.SDK_INT < Build.VERSION_CODES.TIRAMISU) {
            return BT601;
        }
        switch (DataSpace.getStandard(image.getDataSpace())) {
            case DataSpace.STANDARD_BT709:
                return BT709;
            case DataSpace.STANDARD_BT2020:
            case DataSpace.STANDARD_BT2020_CONSTANT_LUMINANCE:
                return BT2020;
            default:
                return BT601;
        }
    }

    static boolean hasFullRange(@NotNull Image image) {
        return Build.VERSION.SDK_INT < Build.VERSION_CODES.TIRAMISU
                || DataSpace.getRange(image.getDataSpace()) != DataSpace.RANGE_LIMITED;
    }
}
