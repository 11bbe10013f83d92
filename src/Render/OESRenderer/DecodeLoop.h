#pragma once

#include <jni.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "VEAndroidCodec.h"

/// What a renderer's GL thread and its decoder thread share. Both own it, so that it outlives
/// whichever of the two ends first: destroying a renderer does not wait for the decoder thread to
/// end.
struct DecodeLoop {
    DecodeLoop(JNIEnv* env, jobject surface, int width, int height, const char* mimeType)
        : codec(env, surface, width, height, mimeType) {}

    /// The decoder thread: releases each decoded picture to the surface until told to stop. The
    /// wait for a picture paces it, and a pause where a decoder fails without waiting.
    void run() {
        while (!stopDecoding) {
            if (!codec.update()) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        }
    }

    std::atomic<bool> stopDecoding{false};
    AndroidCodec codec;
};
