package android.util;

/** The attributes of a view in a layout. */
public interface AttributeSet {
    /** Null if there is none of this name. */
    String getAttributeValue(String namespace, String name);
}
