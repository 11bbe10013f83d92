package org.vornrenderer;

import java.io.IOException;
import org.jetbrains.annotations.NotNull;
import org.jetbrains.annotations.Nullable;

/** What an engine shows. Runs on the GL thread. */
interface PictureSource {
    /**
     * Draws the picture that is due. Returns whether it is another one than before.
     *
     * @throws IOException if it cannot be read
     * @throws RuntimeException if it cannot be shown
     */
    boolean draw(@NotNull Look look) throws IOException;

    /** Null as long as nothing was drawn. */
    @Nullable
    Picture picture();

    /** The time of the picture, in microseconds. */
    long timeUs();

    /** Frees what GL and the platform gave. The next draw takes it again. */
    void free(boolean contextLost);

    /** Frees and forgets everything, with the context current. */
    void close();
}
