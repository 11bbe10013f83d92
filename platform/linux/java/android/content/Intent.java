package android.content;

import android.net.Uri;
import org.jetbrains.annotations.Nullable;

/** What a screen is asked to do. */
public class Intent {
    public static final String ACTION_OPEN_DOCUMENT = "android.intent.action.OPEN_DOCUMENT";
    public static final String CATEGORY_OPENABLE = "android.intent.category.OPENABLE";

    private Uri data;

    public Intent() {}

    public Intent(String action) {}

    public Intent(Context packageContext, Class<?> cls) {}

    @Nullable
    public Uri getData() {
        return data;
    }

    public Intent setData(Uri newData) {
        data = newData;
        return this;
    }

    public Intent setType(String type) {
        return this;
    }

    public Intent addCategory(String category) {
        return this;
    }
}
