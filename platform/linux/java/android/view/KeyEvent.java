package android.view;

/** A key that was pressed. */
public class KeyEvent {
    public static final int ACTION_DOWN = 0;
    public static final int KEYCODE_0 = 7;
    public static final int KEYCODE_DPAD_LEFT = 21;
    public static final int KEYCODE_DPAD_RIGHT = 22;
    public static final int KEYCODE_EQUALS = 70;
    public static final int KEYCODE_MEDIA_PLAY_PAUSE = 85;
    public static final int KEYCODE_MINUS = 69;
    public static final int KEYCODE_NUMPAD_ADD = 157;
    public static final int KEYCODE_NUMPAD_SUBTRACT = 156;
    public static final int KEYCODE_PLUS = 81;
    public static final int KEYCODE_SPACE = 62;

    private final int code;

    public KeyEvent(int action, int code) {
        this.code = code;
    }

    public final int getKeyCode() {
        return code;
    }
}
