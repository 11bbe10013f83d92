package android.content;

/** What an application runs in. Nothing on the desktop. */
public abstract class Context {}
