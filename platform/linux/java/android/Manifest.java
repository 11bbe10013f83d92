package android;

/** Names of what applications may do. */
public final class Manifest {
    public static final class permission {
        public static final String CAMERA = "android.permission.CAMERA";
    }
}
