package android.app;

import android.content.Intent;
import android.net.Uri;
import android.view.View;

/** What only the system does to activities. */
public final class Activities {
    private Activities() {}

    public static View start(Activity activity, Uri data) {
        activity.setIntent(new Intent().setData(data));
        activity.onCreate(null);
        activity.onResume();
        return activity.contentView();
    }

    public static void pause(Activity activity) {
        activity.onPause();
    }
}
