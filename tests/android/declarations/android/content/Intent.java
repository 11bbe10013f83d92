package android.content;

import android.net.Uri;

public class Intent {
    public static final String ACTION_OPEN_DOCUMENT = "android.intent.action.OPEN_DOCUMENT";
    public static final String CATEGORY_OPENABLE = "android.intent.category.OPENABLE";

    public Intent(String action) {}

    public native Intent addCategory(String category);

    public native Intent setType(String type);

    public native Uri getData();
}
