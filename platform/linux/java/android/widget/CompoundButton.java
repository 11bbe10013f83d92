package android.widget;

import android.content.Context;
import android.util.AttributeSet;

/** Is on or off. */
public abstract class CompoundButton extends Button {
    public interface OnCheckedChangeListener {
        void onCheckedChanged(CompoundButton buttonView, boolean isChecked);
    }

    private OnCheckedChangeListener listener;
    private boolean checked;

    public CompoundButton(Context context, AttributeSet attrs) {
        super(context, attrs);
    }

    public void setOnCheckedChangeListener(OnCheckedChangeListener listener) {
        this.listener = listener;
    }

    @Override
    public boolean performClick() {
        checked = !checked;
        if (listener != null) {
            listener.onCheckedChanged(this, checked);
        }
        return super.performClick();
    }
}
