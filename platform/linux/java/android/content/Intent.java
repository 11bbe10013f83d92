package android.content;

import android.net.Uri;

/** What a screen is asked to do. */
public class Intent {
    private Uri data;

    public Uri getData() {
        return data;
    }

    public Intent setData(Uri data) {
        this.data = data;
        return this;
    }
}
