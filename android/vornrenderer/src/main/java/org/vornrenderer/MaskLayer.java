package org.vornrenderer;

import org.jetbrains.annotations.NotNull;

/** The mask of an engine: pixels, or a texture of the application. Runs on the GL thread. */
final class MaskLayer {
    private final PixelSlot slot = new PixelSlot();
    private final Texture texture = new Texture();
    private Pixels pixels;
    private boolean changed;
    private int given;
    private boolean hidden;

    /** Where other threads put the pixels of the next mask. */
    @NotNull
    PixelSlot slot() {
        return slot;
    }

    /** Takes the pixels from the slot. */
    void takePixels() {
        Pixels next = slot.take();
        if (next != null) {
            if (pixels != null) {
                slot.giveBack(pixels);
            }
            pixels = next;
            changed = true;
        }
    }

    /** Takes a texture of the application. */
    void take(int applicationTexture) {
        clear();
        given = applicationTexture;
    }

    void clear() {
        pixels = null;
        slot.trim();
        given = 0;
    }

    void hide(boolean hide) {
        hidden = hide;
    }

    boolean isShown() {
        return !hidden && texture() != 0;
    }

    /** 0 for none. */
    int texture() {
        return pixels != null ? texture.name() : given;
    }

    /**
     * Once per draw, with the context current.
     *
     * @throws RendererException if GL has no texture of that size
     */
    void prepare() {
        if (pixels == null) {
            texture.free(false);
        } else if (changed) {
            texture.upload(pixels);
            changed = false;
        }
    }

    /** Frees what GL gave. Pixels come back with the next draw. */
    void free(boolean contextLost) {
        texture.free(contextLost);
        changed = true;
        if (contextLost) {
            given = 0;
        }
    }
}
