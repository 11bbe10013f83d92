package android.content.res;

import android.util.AttributeSet;

/** The values of some attributes of a view, by their places in a list. */
public class TypedArray {
    private static final String APPLICATION = "http://schemas.android.com/apk/res-auto";

    private final Resources resources;
    private final String[] names;
    private final String[] values;

    TypedArray(Resources resources, AttributeSet set, int[] attributes) {
        this.resources = resources;
        names = new String[attributes.length];
        values = new String[attributes.length];
        for (int i = 0; i < attributes.length; ++i) {
            names[i] = resources.getResourceEntryName(attributes[i]);
            values[i] = resources.resolve(set.getAttributeValue(APPLICATION, names[i]));
        }
    }

    public String getString(int index) {
        return values[index];
    }

    public boolean getBoolean(int index, boolean defValue) {
        return values[index] == null ? defValue : Boolean.parseBoolean(values[index]);
    }

    /** One of the words that the attribute may have. */
    public int getInt(int index, int defValue) {
        return values[index] == null ? defValue : resources.word(names[index], values[index]);
    }

    /** Written as #RRGGBB. */
    public int getColor(int index, int defValue) {
        return values[index] == null ? defValue : 0xFF << 24 | Integer.decode(values[index]);
    }

    public void recycle() {}
}
