package android.widget;

import android.content.Context;
import android.util.AttributeSet;
import android.view.ViewGroup;

/** Views in a row or a column. On the desktop, each fills it. */
public class LinearLayout extends ViewGroup {
    public LinearLayout(Context context, AttributeSet attrs) {
        super(context, attrs);
    }
}
