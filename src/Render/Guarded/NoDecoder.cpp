// In the place of the platform's decoder where there is none.

#include "DecoderSource.h"

VEResult CheckDecoder(int32_t /*source*/) {
    return VE_ERROR_NO_DECODER;
}

VEResult OpenDecoder(const DecoderSettings& /*settings*/,
                     std::unique_ptr<DecoderSource>& /*decoder*/) {
    return VE_ERROR_NO_DECODER;
}
