package android.content;

public abstract class Context {
    public final native String getString(int id, Object... arguments);
}
