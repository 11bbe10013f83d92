#pragma once

#include <jni.h>

#include <vector>

#include "TestStream.h"

/// A renderer of H.264, from its creation over these units and a draw to its end.
struct Life {
    JavaVM* jvm;
    unsigned texture;
    bool guarded;       ///< By VERendererExt.h, otherwise by VERenderer.h.
    bool toThePicture;  ///< Waits for a picture before it ends.
};
void Live(const Life& life, std::vector<TestUnit> units);

/// Lives of all kinds on two threads, so many on each.
void LiveOnTwoThreads(JavaVM* jvm, int lives);
