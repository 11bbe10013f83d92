package android.app;

import android.content.Intent;
import android.net.Uri;
import android.view.View;

/** What only the system does to activities. */
public final class Activities {
    private Activities() {}

    public static <T extends View> T start(Activity activity, Uri data) {
        activity.setIntent(new Intent().setData(data));
        activity.onCreate(null);
        activity.onResume();
        @SuppressWarnings("unchecked")
        T content = (T) activity.contentView();
        return content;
    }

    public static Intent started(Activity activity) {
        return activity.started;
    }

    /** As when the user picked a file. */
    public static void pick(Activity activity, Uri file) {
        activity.onActivityResult(1, Activity.RESULT_OK, new Intent().setData(file));
    }

    public static void end(Activity activity) {
        activity.onPause();
        activity.onDestroy();
    }
}
