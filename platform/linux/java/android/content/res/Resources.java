package android.content.res;

import android.util.AttributeSet;
import java.io.File;
import java.lang.reflect.Field;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.Map;
import javax.xml.stream.XMLStreamException;

/**
 * The resources of an application, read from their sources. The system property android.resources has
 * them as package=folder, separated by colons, that of the application first. Each package has a class R.
 */
public class Resources {
    /** There is no such resource. */
    public static class NotFoundException extends RuntimeException {
        private static final long serialVersionUID = 1;

        public NotFoundException(String name) {
            super(name);
        }
    }

    private final Map<String, File> folders = new LinkedHashMap<>();
    private final Map<String, String> strings = new HashMap<>();

    /** The numbers of the words that an attribute may have, by "attribute/word". */
    private final Map<String, Integer> words = new HashMap<>();

    Resources() {
        for (String entry : System.getProperty("android.resources", "").split(":")) {
            String[] parts = entry.split("=");
            if (parts.length == 2) {
                folders.put(parts[0], new File(parts[1]));
            }
        }
        for (File folder : folders.values()) {
            for (File values : new File(folder, "values").listFiles()) {
                readValues(new XmlFile(values));
            }
        }
    }

    public static Resources getSystem() {
        return Holder.RESOURCES;
    }

    private static final class Holder {
        static final Resources RESOURCES = new Resources();
    }

    public String getString(int id) {
        return strings.get(getResourceEntryName(id));
    }

    public String getString(int id, Object... formatArgs) {
        return String.format(getString(id), formatArgs);
    }

    /** 0 if there is none. */
    public int getIdentifier(String name, String defType, String defPackage) {
        try {
            return Class.forName(defPackage + ".R$" + defType).getField(name).getInt(null);
        } catch (ReflectiveOperationException e) {
            return 0;
        }
    }

    public String getResourceEntryName(int id) {
        return find(id).getName();
    }

    public XmlResourceParser getLayout(int id) {
        Field field = find(id);
        for (File folder : folders.values()) {
            File layout = new File(folder, "layout/" + field.getName() + ".xml");
            if (layout.exists()) {
                return new XmlFile(layout);
            }
        }
        throw new NotFoundException(field.getName());
    }

    public TypedArray obtainAttributes(AttributeSet set, int[] attrs) {
        return new TypedArray(this, set, attrs);
    }

    /** What a text in a layout stands for. */
    String resolve(String text) {
        return text != null && text.startsWith("@string/")
                ? strings.get(text.substring("@string/".length()))
                : text;
    }

    int word(String attribute, String text) {
        return words.get(attribute + "/" + text);
    }

    private Field find(int id) {
        for (String owner : folders.keySet()) {
            for (String type : new String[] {"attr", "id", "layout", "string"}) {
                Field field = find(owner + ".R$" + type, id);
                if (field != null) {
                    return field;
                }
            }
        }
        throw new NotFoundException("0x" + Integer.toHexString(id));
    }

    private static Field find(String type, int id) {
        try {
            for (Field field : Class.forName(type).getFields()) {
                if (field.getType() == int.class && field.getInt(null) == id) {
                    return field;
                }
            }
        } catch (ReflectiveOperationException e) {
            return null; // The package has no resources of this type.
        }
        return null;
    }

    private void readValues(XmlFile file) {
        try {
            String attribute = "";
            for (int tag = file.next(); tag != XmlFile.END_DOCUMENT; tag = file.next()) {
                if (tag != XmlFile.START_TAG) {
                    continue;
                }
                String name = file.getAttributeValue(null, "name");
                if (file.getName().equals("attr")) {
                    attribute = name;
                } else if (file.getName().equals("enum")) {
                    int value = Integer.parseInt(file.getAttributeValue(null, "value"));
                    words.put(attribute + "/" + name, value);
                } else if (file.getName().equals("string")) {
                    strings.put(name, file.text());
                }
            }
        } catch (XMLStreamException e) {
            throw new IllegalStateException(e);
        }
    }
}
