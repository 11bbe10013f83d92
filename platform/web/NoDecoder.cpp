// The web's decoders are the browser's own: their pictures come as textures.

#include "src/Render/DecodeRenderer.h"
#include "src/Render/Guarded/DecoderSource.h"

VERendererBase* CreateDecodeRenderer(int /*textureId*/, int /*format*/, VERendererMode* /*mode*/,
                                     void* /*javaVM*/) {
    return nullptr;
}

bool HasDecoders() {
    return false;
}

VEResult CheckDecoder(int32_t /*source*/) {
    return VE_ERROR_NO_DECODER;
}

VEResult OpenDecoder(const DecoderSettings& /*settings*/,
                     std::unique_ptr<DecoderSource>& /*decoder*/) {
    return VE_ERROR_NO_DECODER;
}
