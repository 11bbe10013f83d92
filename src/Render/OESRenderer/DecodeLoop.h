#pragma once

#include <jni.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "VEAndroidCodec.h"

/// What a renderer's GL thread and its decoder thread share. Both own it, since destroying a
/// renderer does not wait for the end of the decoder thread.
struct DecodeLoop {
    DecodeLoop(JNIEnv* env, jobject surface, int width, int height, const char* mimeType)
        : codec(env, surface, width, height, mimeType) {}

    /// Runs on the decoder thread: releases each decoded picture to the surface until stopDecoding
    /// is set. Each turn waits for a picture, or pauses if the decoder fails without waiting.
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
