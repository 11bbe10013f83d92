package android.widget;

import android.content.Context;
import android.util.AttributeSet;
import android.view.View;

/** Is clicked. */
public class Button extends View {
    public Button(Context context, AttributeSet attrs) {
        super(context, attrs);
    }
}
