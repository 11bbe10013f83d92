#include "render/VERenderer.h"

#include <new>

#include "DecodeRenderer.h"
#include "GLES3Renderer/VEGLES3Renderer.h"

namespace {

constexpr int kDone = 0;
constexpr int kBadArgument = -1;

constexpr int kNoSticker = -1;

VERendererBase* AsRenderer(void* handle) {
    return static_cast<VERendererBase*>(handle);
}

/// AsRenderer expects the address of the base.
void* AsHandle(VERendererBase* renderer) {
    return renderer;
}

}  // namespace

int VECreateRendererHandleWithFormat(void** handle, int textureId, int format, VERendererMode* mode,
                                     void* javaVM) {
    if (mode == nullptr || textureId < 0) {
        return kBadArgument;
    }
    switch (mode->modeType) {
        case VE_MODE_H264:
        case VE_MODE_MJPEG:
            *handle = AsHandle(CreateDecodeRenderer(textureId, format, mode, javaVM));
            break;
        case VE_MODE_RGB:
        case VE_MODE_RGBA: *handle = AsHandle(new VEGLES3Renderer(textureId, format, mode)); break;
        default: break;  // Frozen: mode 4
    }
    return kDone;
}

int VECreateRendererHandle(void** handle, int textureId, VERendererMode* mode, void* javaVM) {
    return VECreateRendererHandleWithFormat(handle, textureId, VE_FORMAT_RGBA, mode, javaVM);
}

int VEUpdateRenderer(void* handle, void* data, unsigned int size, bool colorMirror,
                     void* maskData) {
    if (handle == nullptr) {
        return kBadArgument;
    }
    VEStickerList noStickers;
    return AsRenderer(handle)->Update(data, size, colorMirror, maskData, kNoSticker, noStickers);
}

int VEUpdateRendererWithSticker(void* handle, void* data, unsigned int size, bool colorMirror,
                                void* maskData, int stickerTexture,
                                std::vector<std::pair<int, int>>& stickers) {
    if (handle == nullptr) {
        return kBadArgument;
    }
    return AsRenderer(handle)->Update(data, size, colorMirror, maskData, stickerTexture, stickers);
}

int VEUpdateCompressedData(void* handle, void* data, int size) {
    if (handle == nullptr) {
        return kBadArgument;
    }
    return AsRenderer(handle)->UpdateCompressedData(data, size);
}

int VEUpdateUserPosition(void* handle, float a, float b, float c, float d) {
    if (handle == nullptr) {
        return kBadArgument;
    }
    return AsRenderer(handle)->UpdateUserPosition(a, b, c, d);
}

void VEDestroyRenderer(void* handle) {
    if (handle == nullptr) {
        return;
    }
    VERendererBase* renderer = AsRenderer(handle);
    renderer->Destroy();
    renderer->VERendererBase::~VERendererBase();  // Frozen: base destructor
    ::operator delete(handle);
}
