package android.view;

/** A key that was pressed. */
public class KeyEvent {
    public static final int ACTION_DOWN = 0;
    public static final int KEYCODE_DPAD_LEFT = 21;
    public static final int KEYCODE_DPAD_RIGHT = 22;
    public static final int KEYCODE_MEDIA_PLAY_PAUSE = 85;
    public static final int KEYCODE_SPACE = 62;

    private final int code;

    public KeyEvent(int action, int code) {
        this.code = code;
    }

    public final int getKeyCode() {
        return code;
    }
}
