package org.vornrenderer;

import android.media.Image;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** Images of a camera or a decoder. Runs on the GL thread. */
final class ImageSource implements PictureSource {
    private static final int NS_PER_US = 1000;

    private final ImageConverter converter = new ImageConverter();

    /** To be closed; null for none. */
    private Image next;

    private RenderTarget shown;
    private Picture picture;
    private long timeUs;

    /** Closes the image once it is drawn. */
    void show(@NotNull Image image) {
        drop();
        next = image;
    }

    private void drop() {
        if (next != null) {
            next.close();
            next = null;
        }
    }

    @Override
    public boolean draw(@NotNull Look look) {
        boolean isNew = next != null;
        if (isNew) {
            try {
                shown = converter.convert(next);
                timeUs = next.getTimestamp() / NS_PER_US;
            } finally {
                drop();
            }
        }
        if (shown == null) {
            return false;
        }
        if (picture != null && !picture.fits(shown.width(), shown.height(), look.rotation)) {
            picture.close(false);
            picture = null;
        }
        if (picture == null) {
            picture =
                    Picture.open(
                            VideoSource.TEXTURE_2D, shown.width(), shown.height(), look.rotation);
        }
        picture.drawTexture(shown.texture(), null, look);
        return isNew;
    }

    @Override
    @Nullable
    public Picture picture() {
        return picture;
    }

    @Override
    public long timeUs() {
        return timeUs;
    }

    @Override
    public void free(boolean contextLost) {
        drop();
        if (picture != null) {
            picture.close(contextLost);
            picture = null;
        }
        converter.free(contextLost);
        shown = null;
    }

    @Override
    public void close() {
        free(false);
    }
}
