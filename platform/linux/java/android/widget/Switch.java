package android.widget;

import android.content.Context;
import android.util.AttributeSet;

/** A switch. */
public class Switch extends CompoundButton {
    public Switch(Context context, AttributeSet attrs) {
        super(context, attrs);
    }
}
