#include <gl/GLES3.h>
#include <kernel/String.h>
#include <render/VERenderer.h>

int main() {
    VERendererMode mode = {};
    mode.modeType = VE_MODE_NONE;
    void* renderer = nullptr;
    const bool created = VECreateRendererHandle(&renderer, 1, &mode, nullptr) == 0;
    const OVR::String text("sticker");
    return created && GLES3::LoadGLFunctions() && text.GetLength() == 7 ? 0 : 1;
}
