package android.net;

import java.io.File;
import java.net.URI;

/** The address of a file. */
public abstract class Uri {
    public static Uri fromFile(File file) {
        return new FileUri(file.getAbsoluteFile().toURI());
    }

    public static Uri parse(String text) {
        return new FileUri(URI.create(text));
    }

    public abstract String getPath();

    private static final class FileUri extends Uri {
        private final URI address;

        FileUri(URI address) {
            this.address = address;
        }

        @Override
        public String getPath() {
            return address.getPath();
        }

        @Override
        public String toString() {
            return address.toString();
        }
    }
}
