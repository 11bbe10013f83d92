#pragma once

#include <jni.h>

#include <atomic>

#include "VEAndroidCodec.h"

/// What a renderer's GL thread and its decoder thread share. Both own it, so that it outlives
/// whichever of the two ends first: destroying a renderer does not wait for the decoder thread.
struct DecodeLoop {
    DecodeLoop(JNIEnv* env, jobject surface, int width, int height, const char* mimeType)
        : codec(env, surface, width, height, mimeType) {}

    /// The decoder thread: releases each decoded frame to the surface until told to stop. The wait
    /// for a frame paces it.
    void run() {
        while (!stopDecoding) {
            codec.update();
        }
    }

    std::atomic<bool> stopDecoding{false};
    AndroidCodec codec;
};
