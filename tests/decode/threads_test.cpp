// Renderers of compressed video on several threads, with the real decoder and no JVM, so that the
// thread sanitizer can watch.

#include <gtest/gtest.h>

#include "FakeJvm.h"
#include "Life.h"

TEST(DecoderThreads, RenderersOfTwoThreadsAreIndependent) {
    LiveOnTwoThreads(FakeJvm(), 30);
}
