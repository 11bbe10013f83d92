package org.vornrenderer;

import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** Pixels that show until others come. Runs on the GL thread. */
final class StillSource implements PictureSource {
    private final PixelSlot slot = new PixelSlot();
    private final Texture texture = new Texture();
    private Pixels pixels;
    private boolean changed;
    private Picture picture;

    /** Where other threads put the next pixels. */
    @NotNull
    PixelSlot slot() {
        return slot;
    }

    /** Takes the pixels from the slot. Returns whether there were any. */
    boolean takePixels() {
        Pixels next = slot.take();
        if (next == null) {
            return false;
        }
        forget();
        pixels = next;
        changed = true;
        return true;
    }

    @Override
    public boolean draw(@NotNull Look look) {
        if (pixels == null) {
            return false;
        }
        if (picture != null && !picture.fits(pixels.width(), pixels.height(), look.rotation)) {
            free(false);
        }
        boolean isNew = changed;
        if (picture == null) {
            picture =
                    Picture.open(
                            VideoSource.TEXTURE_2D, pixels.width(), pixels.height(), look.rotation);
        }
        if (changed) {
            texture.upload(pixels);
            changed = false;
        }
        picture.drawTexture(texture.name(), null, look);
        return isNew;
    }

    @Override
    @Nullable
    public Picture picture() {
        return changed ? null : picture;
    }

    @Override
    public long timeUs() {
        return 0;
    }

    @Override
    public void free(boolean contextLost) {
        if (picture != null) {
            picture.close(contextLost);
            picture = null;
        }
        texture.free(contextLost);
        changed = true;
    }

    @Override
    public void close() {
        free(false);
        pixels = null;
        slot.trim();
    }

    private void forget() {
        if (pixels != null) {
            slot.giveBack(pixels);
            pixels = null;
        }
    }
}
