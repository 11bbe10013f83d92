#pragma once

#include <jni.h>

/// A JVM with only the classes SurfaceTexture and Surface, in front of the platform's real windows.
/// It runs where a real JVM cannot: in one process with the thread sanitizer. It draws nothing.
JavaVM* FakeJvm();

/// How many objects there are.
int LiveJavaObjects();
