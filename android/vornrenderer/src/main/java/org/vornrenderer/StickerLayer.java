package org.vornrenderer;

import java.util.Arrays;
import java.util.IdentityHashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** The stickers of an engine. Any thread changes the list; the GL thread draws it. */
final class StickerLayer {
    private static final Sticker[] NONE = {};

    /** The last is on top. Replaced, never changed. */
    private volatile Sticker[] stickers = NONE;

    private final Map<Sticker, Texture> textures = new IdentityHashMap<>();
    private Sticker[] prepared = NONE;

    /** Puts a sticker on top. */
    synchronized void add(@NotNull Sticker sticker) {
        Objects.requireNonNull(sticker);
        remove(sticker);
        Sticker[] more = Arrays.copyOf(stickers, stickers.length + 1);
        more[stickers.length] = sticker;
        stickers = more;
    }

    synchronized void remove(@NotNull Sticker sticker) {
        stickers = Arrays.stream(stickers).filter(each -> each != sticker).toArray(Sticker[]::new);
    }

    synchronized void clear() {
        stickers = NONE;
    }

    boolean isEmpty() {
        return stickers.length == 0;
    }

    /** The topmost one that shows at a place; null for none. */
    @Nullable
    Sticker at(float x, float y) {
        Sticker[] now = stickers;
        for (int i = now.length - 1; i >= 0; --i) {
            if (now[i].contains(x, y)) {
                return now[i];
            }
        }
        return null;
    }

    /**
     * Draws all.
     *
     * @throws RendererException if GL has no texture of that size
     */
    void draw(@NotNull Painter painter) {
        Sticker[] now = stickers;
        if (now != prepared) {
            prepare(now);
        }
        for (Sticker sticker : now) {
            float width = sticker.width();
            float height = sticker.height();
            painter.draw(
                    textures.get(sticker).name(),
                    sticker.x() - width / 2,
                    sticker.y() - height / 2,
                    width,
                    height,
                    Painter.Blend.PREMULTIPLIED);
        }
    }

    /** Makes textures for new stickers, and deletes those of stickers that are gone. */
    private void prepare(Sticker[] now) {
        List<Sticker> kept = Arrays.asList(now);
        textures.entrySet()
                .removeIf(
                        each -> {
                            boolean gone = !kept.contains(each.getKey());
                            if (gone) {
                                each.getValue().free(false);
                            }
                            return gone;
                        });
        for (Sticker sticker : now) {
            Texture texture = textures.computeIfAbsent(sticker, each -> new Texture());
            if (texture.name() == 0) {
                texture.upload(sticker.pixels());
            }
        }
        prepared = now;
    }

    /** Frees what GL gave. The next draw takes it again. */
    void free(boolean contextLost) {
        for (Texture texture : textures.values()) {
            texture.free(contextLost);
        }
        textures.clear();
        prepared = NONE;
    }
}
