package org.vornrenderer.sample.kotlin

import android.app.Activity
import android.os.Bundle
import android.widget.Toast
import org.vornrenderer.ScaleMode
import org.vornrenderer.VornTextureView

/** Plays the clip that another application opens with this one, over and over. */
class ClipActivity : Activity() {
    override fun onCreate(state: Bundle?) {
        super.onCreate(state)
        val video = VornTextureView(this)
        setContentView(video)
        video.follow(this)
        video.setScaleMode(ScaleMode.CROP)
        video.setLooping(true)
        video.setErrorListener { reason ->
            Toast.makeText(this, reason.message ?: "$reason", Toast.LENGTH_LONG).show()
        }
        intent.data?.let { clip -> video.play(clip) }
    }
}
