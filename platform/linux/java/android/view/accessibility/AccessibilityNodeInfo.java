package android.view.accessibility;

import java.util.ArrayList;
import java.util.List;
import java.util.Objects;

/** What a screen reader knows of a view. */
public class AccessibilityNodeInfo {
    /** What a screen reader can do to a view. */
    public static final class AccessibilityAction {
        public static final AccessibilityAction ACTION_CLICK =
                new AccessibilityAction(AccessibilityNodeInfo.ACTION_CLICK, null);
        public static final AccessibilityAction ACTION_SCROLL_BACKWARD =
                new AccessibilityAction(AccessibilityNodeInfo.ACTION_SCROLL_BACKWARD, null);
        public static final AccessibilityAction ACTION_SCROLL_FORWARD =
                new AccessibilityAction(AccessibilityNodeInfo.ACTION_SCROLL_FORWARD, null);

        private final int id;
        private final CharSequence label;

        public AccessibilityAction(int actionId, CharSequence label) {
            id = actionId;
            this.label = label;
        }

        public int getId() {
            return id;
        }

        public CharSequence getLabel() {
            return label;
        }

        @Override
        public boolean equals(Object other) {
            return other instanceof AccessibilityAction && ((AccessibilityAction) other).id == id;
        }

        @Override
        public int hashCode() {
            return Objects.hash(id);
        }
    }

    public static final int ACTION_CLICK = 0x10;
    public static final int ACTION_SCROLL_BACKWARD = 0x2000;
    public static final int ACTION_SCROLL_FORWARD = 0x1000;

    private final List<AccessibilityAction> actions = new ArrayList<>();

    private AccessibilityNodeInfo() {}

    public static AccessibilityNodeInfo obtain() {
        return new AccessibilityNodeInfo();
    }

    public void addAction(AccessibilityAction action) {
        actions.add(action);
    }

    public List<AccessibilityAction> getActionList() {
        return actions;
    }
}
