package org.vornrenderer;

import java.util.logging.Level;
import java.util.logging.Logger;

/** Logs a warning if its owner becomes garbage without being closed, with the owner's creation. */
final class CloseReminder {
    private static final Logger LOGGER = Logger.getLogger("org.vornrenderer");

    private final Throwable creation = new Throwable("it was built here");
    private boolean closed;

    synchronized void close() {
        closed = true;
    }

    /** There is no Cleaner before API level 33. */
    @Override
    @SuppressWarnings("deprecation")
    protected synchronized void finalize() {
        if (!closed) {
            LOGGER.log(Level.WARNING, "A renderer was not closed. Its memory is lost.", creation);
        }
    }
}
