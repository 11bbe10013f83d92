package android.content.res;

import android.util.AttributeSet;
import org.xmlpull.v1.XmlPullParser;

/** A layout, element by element. The attributes are those of the current one. */
public interface XmlResourceParser extends XmlPullParser, AttributeSet {
    void close();
}
