package android.content;

import android.content.pm.PackageManager;
import android.content.res.Resources;
import android.content.res.TypedArray;
import android.util.AttributeSet;

/** What an application runs in. */
public abstract class Context {
    public Resources getResources() {
        return Resources.getSystem();
    }

    public String getPackageName() {
        return System.getProperty("android.resources", "").split("=")[0];
    }

    /** Everything is allowed. */
    public int checkSelfPermission(String permission) {
        return PackageManager.PERMISSION_GRANTED;
    }

    /** The class has a constructor without arguments. */
    public final <T> T getSystemService(Class<T> serviceClass) {
        try {
            return serviceClass.getDeclaredConstructor().newInstance();
        } catch (ReflectiveOperationException e) {
            throw new IllegalArgumentException(serviceClass.getName(), e);
        }
    }

    public final String getString(int resId) {
        return getResources().getString(resId);
    }

    public final String getString(int resId, Object... formatArgs) {
        return getResources().getString(resId, formatArgs);
    }

    public final TypedArray obtainStyledAttributes(AttributeSet set, int[] attrs) {
        return getResources().obtainAttributes(set, attrs);
    }
}
