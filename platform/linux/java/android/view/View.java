package android.view;

import android.content.Context;
import android.os.Bundle;
import android.util.AttributeSet;
import android.view.accessibility.AccessibilityNodeInfo;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;

/** A rectangle that a host lays out. */
public class View {
    public interface OnClickListener {
        void onClick(View v);
    }

    private static final String ANDROID = "http://schemas.android.com/apk/res/android";

    private static final ExecutorService UI_THREAD =
            Executors.newSingleThreadExecutor(
                    task -> {
                        Thread thread = new Thread(task, "main");
                        thread.setDaemon(true);
                        return thread;
                    });

    private final Context context;
    private OnClickListener clickListener;
    private boolean attached;
    private int id;
    private CharSequence description;
    private CharSequence state;

    public View(Context context) {
        this(context, null);
    }

    public View(Context context, AttributeSet attrs) {
        this.context = context;
        if (attrs != null) {
            readId(attrs.getAttributeValue(ANDROID, "id"));
            description = attrs.getAttributeValue(ANDROID, "contentDescription");
        }
    }

    /** Like @+id/name. */
    private void readId(String reference) {
        if (reference != null) {
            String name = reference.substring(reference.indexOf('/') + 1);
            id = context.getResources().getIdentifier(name, "id", context.getPackageName());
        }
    }

    public final <T extends View> T findViewById(int id) {
        @SuppressWarnings("unchecked")
        T found = (T) find(id);
        return found;
    }

    View find(int wanted) {
        return id == wanted ? this : null;
    }

    public CharSequence getContentDescription() {
        return description;
    }

    public void setContentDescription(CharSequence contentDescription) {
        description = contentDescription;
    }

    public CharSequence getStateDescription() {
        return state;
    }

    public void setStateDescription(CharSequence stateDescription) {
        state = stateDescription;
    }

    public void onInitializeAccessibilityNodeInfo(AccessibilityNodeInfo info) {}

    public boolean performAccessibilityAction(int action, Bundle arguments) {
        return false;
    }

    public final Context getContext() {
        return context;
    }

    /** Runs the action on the thread of all views. */
    public boolean post(Runnable action) {
        UI_THREAD.execute(action);
        return true;
    }

    protected void onAttachedToWindow() {}

    protected void onDetachedFromWindow() {}

    public boolean isAttachedToWindow() {
        return attached;
    }

    /** A host calls this in place of the view's parent. The first time puts the view into a window. */
    public void layout(int l, int t, int r, int b) {
        if (!attached) {
            attached = true;
            onAttachedToWindow();
        }
    }

    /** As when the view is removed from its parent. */
    void leaveWindow() {
        attached = false;
        onDetachedFromWindow();
    }

    public void setOnClickListener(OnClickListener l) {
        clickListener = l;
    }

    public boolean performClick() {
        if (clickListener != null) {
            clickListener.onClick(this);
        }
        return clickListener != null;
    }

    /** Every view has the focus. */
    public void setFocusable(boolean focusable) {}

    public boolean onKeyDown(int keyCode, KeyEvent event) {
        return false;
    }

    public boolean onTouchEvent(MotionEvent event) {
        return false;
    }
}
