package android.app;

import android.content.Context;
import android.content.Intent;
import android.os.Bundle;
import android.view.LayoutInflater;
import android.view.View;

/** A screen of an application. A host calls what the system calls on a device. */
public class Activity extends Context {
    public static final int RESULT_OK = -1;

    private static final int WIDTH = 320;
    private static final int HEIGHT = 240;

    private Intent intent = new Intent();
    private View content;

    /** What this screen asked for last. */
    Intent started;

    public final Application getApplication() {
        return Application.THE_ONE;
    }

    public Intent getIntent() {
        return intent;
    }

    public void setIntent(Intent newIntent) {
        intent = newIntent;
    }

    public void setContentView(int layoutResID) {
        setContentView(LayoutInflater.from(this).inflate(layoutResID, null));
    }

    public void setContentView(View view) {
        content = view;
        view.layout(0, 0, WIDTH, HEIGHT);
    }

    public <T extends View> T findViewById(int id) {
        return content.findViewById(id);
    }

    public void startActivity(Intent intent) {
        started = intent;
    }

    public void startActivityForResult(Intent intent, int requestCode) {
        started = intent;
    }

    View contentView() {
        return content;
    }

    protected void onCreate(Bundle savedInstanceState) {}

    protected void onResume() {
        getApplication().tell(callback -> callback.onActivityResumed(this));
    }

    protected void onPause() {
        getApplication().tell(callback -> callback.onActivityPaused(this));
    }

    protected void onDestroy() {
        getApplication().tell(callback -> callback.onActivityDestroyed(this));
    }

    /** Everything is allowed already. */
    public final void requestPermissions(String[] permissions, int requestCode) {}

    public void onRequestPermissionsResult(
            int requestCode, String[] permissions, int[] grantResults) {}

    protected void onActivityResult(int requestCode, int resultCode, Intent data) {}
}
