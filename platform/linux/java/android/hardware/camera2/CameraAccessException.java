package android.hardware.camera2;

/** The camera cannot be used. */
public class CameraAccessException extends Exception {
    private static final long serialVersionUID = 1;

    public CameraAccessException(int problem) {
        super("camera problem " + problem);
    }
}
