package android.os;

/** The saved state of a screen. Nothing on the desktop. */
public final class Bundle {}
