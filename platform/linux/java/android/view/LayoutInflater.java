package android.view;

import android.content.Context;
import android.content.res.XmlResourceParser;
import android.util.AttributeSet;

/** Makes the views of a layout. */
public abstract class LayoutInflater {
    private final Context context;

    protected LayoutInflater(Context context) {
        this.context = context;
    }

    public static LayoutInflater from(Context context) {
        return new LayoutInflater(context) {};
    }

    public View inflate(int resource, ViewGroup root) {
        XmlResourceParser parser = context.getResources().getLayout(resource);
        parser.next();
        return read(parser);
    }

    private View read(XmlResourceParser parser) {
        View view = make(parser.getName(), parser);
        while (parser.next() == XmlResourceParser.START_TAG) {
            ((ViewGroup) view).addView(read(parser));
        }
        return view;
    }

    private View make(String name, AttributeSet attributes) {
        try {
            return Class.forName(name.contains(".") ? name : "android.widget." + name)
                    .asSubclass(View.class)
                    .getConstructor(Context.class, AttributeSet.class)
                    .newInstance(context, attributes);
        } catch (ReflectiveOperationException e) {
            throw new IllegalStateException(name, e);
        }
    }
}
