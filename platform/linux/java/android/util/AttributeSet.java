package android.util;

/** The attributes of a view in a layout. There are no layouts on the desktop. */
public interface AttributeSet {}
