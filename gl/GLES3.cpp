#include "gl/GLES3.h"

#include <EGL/egl.h>
#include <dlfcn.h>
#include <pthread.h>

namespace GLES3 {

#define GLES3_ENTRY(type, name) type name = nullptr;
#include "gl/GLES3Entries.inc"

namespace {

struct LoadOnce {
    pthread_once_t control = PTHREAD_ONCE_INIT;
    bool loaded = false;
};

LoadOnce loadOnce;

/// The entry point called \p name, or null.
// Frozen: second lookup
template <typename Function>
Function LoadGLFunction(const char* name) {
    if (auto* found = eglGetProcAddress(name)) {
        return reinterpret_cast<Function>(found);
    }
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// Frozen: GL table
template <typename Function>
bool Resolve(Function& slot, const char* name) {
    slot = LoadGLFunction<Function>(name);
    return slot != nullptr;
}

void LoadTable() {
#define GLES3_ENTRY(type, name)  \
    if (!Resolve(name, #name)) { \
        return;                  \
    }
#include "gl/GLES3Entries.inc"
    loadOnce.loaded = true;
}

}  // namespace

bool LoadGLFunctions() {
    return pthread_once(&loadOnce.control, LoadTable) == 0 && loadOnce.loaded;
}

}  // namespace GLES3
