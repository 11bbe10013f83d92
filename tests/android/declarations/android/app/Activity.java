package android.app;

import android.content.Context;
import android.content.Intent;
import android.os.Bundle;
import android.view.View;

public class Activity extends Context {
    public static final int RESULT_OK = -1;

    public final native String getString(int id, Object... arguments);

    public native Intent getIntent();

    protected native void onCreate(Bundle state);

    protected native void onResume();

    protected native void onPause();

    public native void setContentView(int layout);

    public native void setContentView(View view);

    public native <T extends View> T findViewById(int id);

    public native void startActivityForResult(Intent intent, int request);

    protected native void onActivityResult(int request, int result, Intent data);
}
