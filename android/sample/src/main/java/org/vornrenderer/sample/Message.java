package org.vornrenderer.sample;

import android.content.Context;
import android.widget.Toast;

/** Says why something cannot be shown. */
final class Message {
    private Message() {}

    static void show(Context context, String reason) {
        String text = context.getString(R.string.cannot_show, reason);
        Toast.makeText(context, text, Toast.LENGTH_LONG).show();
    }
}
