package org.vornrenderer;

import android.app.Activity;
import android.app.Application;
import android.os.Bundle;
import org.jetbrains.annotations.NotNull;

/** Passes the pauses of an activity on to a view until the activity ends. */
final class ActivityWatch implements Application.ActivityLifecycleCallbacks {
    private final Activity watched;
    private final VideoPlayer player;

    ActivityWatch(@NotNull Activity watched, @NotNull VideoPlayer player) {
        this.watched = watched;
        this.player = player;
    }

    void start() {
        watched.getApplication().registerActivityLifecycleCallbacks(this);
    }

    @Override
    public void onActivityResumed(Activity activity) {
        if (activity == watched) {
            player.onResume();
        }
    }

    @Override
    public void onActivityPaused(Activity activity) {
        if (activity == watched) {
            player.onPause();
        }
    }

    @Override
    public void onActivityDestroyed(Activity activity) {
        if (activity == watched) {
            watched.getApplication().unregisterActivityLifecycleCallbacks(this);
        }
    }

    @Override
    public void onActivityCreated(Activity activity, Bundle state) {}

    @Override
    public void onActivityStarted(Activity activity) {}

    @Override
    public void onActivityStopped(Activity activity) {}

    @Override
    public void onActivitySaveInstanceState(Activity activity, Bundle state) {}
}
