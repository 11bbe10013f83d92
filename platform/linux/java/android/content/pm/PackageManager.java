package android.content.pm;

/** What applications may do. */
public abstract class PackageManager {
    public static final int PERMISSION_DENIED = -1;
    public static final int PERMISSION_GRANTED = 0;
}
