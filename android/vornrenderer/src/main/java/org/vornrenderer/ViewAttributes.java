package org.vornrenderer;

import android.content.Context;
import android.content.res.TypedArray;
import android.net.Uri;
import android.util.AttributeSet;
import org.jetbrains.annotations.NotNull;

/** The attributes of a view in a layout: res/values/attrs.xml. */
final class ViewAttributes {
    private ViewAttributes() {}

    static void apply(@NotNull VideoPlayer player, @NotNull AttributeSet attributes) {
        Context context = player.getContext();
        TypedArray values = context.obtainStyledAttributes(attributes, R.styleable.VornVideoView);
        try {
            apply(player, values);
        } finally {
            values.recycle();
        }
    }

    private static void apply(VideoPlayer player, TypedArray values) {
        int scaleMode = values.getInt(R.styleable.VornVideoView_vornScaleMode, 0);
        player.setScaleMode(ScaleMode.values()[scaleMode]);
        player.setBorderColor(values.getColor(R.styleable.VornVideoView_vornBorderColor, 0));
        player.setMirrored(values.getBoolean(R.styleable.VornVideoView_vornMirrored, false));
        player.setLooping(values.getBoolean(R.styleable.VornVideoView_vornLooping, false));
        player.setGestures(values.getBoolean(R.styleable.VornVideoView_vornGestures, true));
        String source = values.getString(R.styleable.VornVideoView_vornSource);
        if (source != null) {
            player.play(Uri.parse(source));
        }
    }
}
