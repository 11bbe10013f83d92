package android.view;

import android.content.Context;
import android.util.AttributeSet;

/** A view with a surface. */
public class SurfaceView extends View {
    public SurfaceView(Context context) {
        super(context);
    }

    public SurfaceView(Context context, AttributeSet attrs) {
        super(context, attrs);
    }
}
