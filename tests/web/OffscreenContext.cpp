// The browser's context without a window, and the program's main.

#include "offscreen/OffscreenContext.h"

#include <emscripten.h>
#include <emscripten/html5_webgl.h>
#include <gtest/gtest.h>

#include "MapForReading.h"

namespace {

EM_JS(EMSCRIPTEN_WEBGL_CONTEXT_HANDLE, OpenContext, (), {
    const gl = new OffscreenCanvas(1, 1).getContext("webgl2");
    return gl ? GL.registerContext(gl, {majorVersion : 2}) : 0;
});

EM_JS(void, CloseContext, (EMSCRIPTEN_WEBGL_CONTEXT_HANDLE context), {
    GL.contexts[context].GLctx.getExtension("WEBGL_lose_context").loseContext();
    GL.deleteContext(context);
});

}  // namespace

OffscreenContext::OffscreenContext() : context_(reinterpret_cast<void*>(OpenContext())) {
    if (display_ != nullptr || context_ == nullptr) {
        throw OffscreenError("no WebGL 2 context");
    }
    emscripten_webgl_make_context_current(
        reinterpret_cast<EMSCRIPTEN_WEBGL_CONTEXT_HANDLE>(context_));
}

OffscreenContext::~OffscreenContext() {
    CloseContext(reinterpret_cast<EMSCRIPTEN_WEBGL_CONTEXT_HANDLE>(context_));
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    MapForReading();
    return RUN_ALL_TESTS();
}
