package android.os;

/** What the application runs on. */
public class Build {
    /** The version of Android, by the system property android.sdk. */
    public static class VERSION {
        public static final int SDK_INT = Integer.getInteger("android.sdk", 36);
    }

    /** Names of versions. */
    public static class VERSION_CODES {
        public static final int R = 30;
        public static final int TIRAMISU = 33;
    }
}
