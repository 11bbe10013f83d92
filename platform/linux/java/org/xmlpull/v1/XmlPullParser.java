package org.xmlpull.v1;

/** Reads XML. */
public interface XmlPullParser {
    int END_DOCUMENT = 1;
    int START_TAG = 2;
    int END_TAG = 3;

    int next();

    String getName();
}
