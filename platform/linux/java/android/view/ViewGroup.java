package android.view;

import android.content.Context;
import android.util.AttributeSet;
import java.util.ArrayList;
import java.util.List;

/** A view with others in it. Each fills it. */
public abstract class ViewGroup extends View {
    private final List<View> children = new ArrayList<>();

    public ViewGroup(Context context, AttributeSet attrs) {
        super(context, attrs);
    }

    public void addView(View child) {
        children.add(child);
    }

    @Override
    public void layout(int l, int t, int r, int b) {
        super.layout(l, t, r, b);
        for (View child : children) {
            child.layout(0, 0, r - l, b - t);
        }
    }

    @Override
    void leaveWindow() {
        for (View child : children) {
            child.leaveWindow();
        }
        super.leaveWindow();
    }

    @Override
    View find(int id) {
        View found = super.find(id);
        for (int i = 0; found == null && i < children.size(); ++i) {
            found = children.get(i).find(id);
        }
        return found;
    }
}
