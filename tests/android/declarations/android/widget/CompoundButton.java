package android.widget;

import android.content.Context;
import android.view.View;

public abstract class CompoundButton extends View {
    public interface OnCheckedChangeListener {
        void onCheckedChanged(CompoundButton button, boolean on);
    }

    public CompoundButton(Context context) {
        super(context);
    }

    public native void setOnCheckedChangeListener(OnCheckedChangeListener listener);
}
