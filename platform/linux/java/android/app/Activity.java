package android.app;

import android.content.Context;
import android.content.Intent;
import android.os.Bundle;
import android.view.View;

/** A screen of an application, with one view. A host calls what the system calls on a device. */
public class Activity extends Context {
    private static final int WIDTH = 320;
    private static final int HEIGHT = 240;

    private Intent intent = new Intent();
    private View content;

    public Intent getIntent() {
        return intent;
    }

    public void setIntent(Intent newIntent) {
        intent = newIntent;
    }

    public void setContentView(View view) {
        content = view;
        view.layout(0, 0, WIDTH, HEIGHT);
    }

    View contentView() {
        return content;
    }

    protected void onCreate(Bundle savedInstanceState) {}

    protected void onResume() {}

    protected void onPause() {}
}
