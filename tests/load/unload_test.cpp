// Load, use, unload, again and again: start-up and shut-down leave nothing behind.

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include "offscreen/OffscreenContext.h"
#include "render/VERenderer.h"

namespace {

template <typename Function>
Function* Find(void* library, const char* name) {
    return reinterpret_cast<Function*>(dlsym(library, name));
}

void UseAndUnload() {
    void* library = dlopen(LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    auto* create = Find<decltype(VECreateRendererHandle)>(library, "VECreateRendererHandle");
    auto* update = Find<decltype(VEUpdateRenderer)>(library, "VEUpdateRenderer");
    auto* destroy = Find<decltype(VEDestroyRenderer)>(library, "VEDestroyRenderer");
    auto* isInitialized = Find<bool()>(library, "_ZN3OVR6System13IsInitializedEv");
    ASSERT_TRUE(create != nullptr && update != nullptr && destroy != nullptr);
    EXPECT_TRUE(isInitialized());

    VERendererMode mode = {VE_OUTPUT_PICTURE, VE_MODE_RGBA, 8, 8, 0, 0, 0};
    unsigned char pixels[8 * 8 * 4] = {};
    void* renderer = nullptr;
    EXPECT_EQ(create(&renderer, 1, &mode, nullptr), 0);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(update(renderer, pixels, sizeof(pixels), true, nullptr), 0);
    }
    destroy(renderer);
    EXPECT_EQ(dlclose(library), 0);
    EXPECT_EQ(dlopen(LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr) << "still loaded";
}

size_t HeapInUse() {
    return mallinfo2().uordblks;
}

/// A device never unloads the system's libraries.
void KeepPlatformLoaded() {
    void* library = dlopen(LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    for (const char* name : {"libmediandk.so", "libandroid.so"}) {
        void* kept = dlopen(name, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
        ASSERT_NE(kept, nullptr) << dlerror();
    }
    EXPECT_EQ(dlclose(library), 0);
}

TEST(Unload, LeavesNothingBehind) {
    const OffscreenContext context;
    KeepPlatformLoaded();
    for (int i = 0; i < 5; ++i) {
        UseAndUnload();
    }
    const size_t before = HeapInUse();
    for (int i = 0; i < 20; ++i) {
        UseAndUnload();
    }
    // GL keeps the pixel buffers and shaders of a renderer until its context goes; nothing else may
    // grow, least of all by the size of a library.
    EXPECT_LT(HeapInUse(), before + size_t{20} * 64 * 1024);
}

}  // namespace
