package org.vornrenderer;

import org.jetbrains.annotations.NotNull;

/** The rectangle of the screen that a picture covers, in pixels, from the first row and column. */
final class Placement {
    private int left;
    private int top;
    private int width = 1;
    private int height = 1;

    void fit(@NotNull Picture picture, int screenWidth, int screenHeight, @NotNull ScaleMode mode) {
        float x = (float) screenWidth / picture.width();
        float y = (float) screenHeight / picture.height();
        float scale = mode == ScaleMode.FIT ? Math.min(x, y) : Math.max(x, y);
        boolean stretch = mode == ScaleMode.STRETCH;
        width = Math.max(1, stretch ? screenWidth : Math.round(picture.width() * scale));
        height = Math.max(1, stretch ? screenHeight : Math.round(picture.height() * scale));
        left = (screenWidth - width) / 2;
        top = (screenHeight - height) / 2;
    }

    int left() {
        return left;
    }

    int top() {
        return top;
    }

    int width() {
        return width;
    }

    int height() {
        return height;
    }
}
