#include "render/VERendererExt.h"

#include <cmath>
#include <new>

#include "DecoderSource.h"
#include "GLCheck.h"
#include "GuardedRenderer.h"
#include "SizedStruct.h"

namespace {

/// Runs \p call and turns all that it throws into a result.
template <typename Call>
VEResult Guarded(const Call& call) noexcept {
    try {
        return call();
    } catch (const Failure& failure) {
        return failure.result;
    } catch (...) {  // No memory, or no thread.
        return VE_ERROR_MEMORY;
    }
}

/// Handles of all kinds point to the base.
GuardedRenderer& AsGuarded(VERenderer* renderer) {
    auto* guarded = dynamic_cast<GuardedRenderer*>(reinterpret_cast<VERendererBase*>(renderer));
    Require(guarded != nullptr, VE_ERROR_HANDLE);
    return *guarded;
}

VERenderer* AsHandle(VERendererBase* renderer) {
    return reinterpret_cast<VERenderer*>(renderer);
}

bool IsOneOf(int32_t value, int32_t a, int32_t b) {
    return value == 0 || value == a || value == b;
}

bool IsTexture(int32_t source) {
    return source == VE_SOURCE_TEXTURE_2D || source == VE_SOURCE_TEXTURE_EXTERNAL;
}

/// \return \p given at full size, with the output's size filled in.
VERendererOptions CheckedOptions(const VERendererOptions* given) {
    VERendererOptions options = ReadStruct(given);
    if (IsTexture(options.source)) {
        options.sourceWidth = 0;
        options.sourceHeight = 0;
    } else {
        Require(options.sourceWidth > 0 && options.sourceHeight > 0, VE_ERROR_ARGUMENT);
    }
    if (options.outputWidth == 0 && options.outputHeight == 0) {
        options.outputWidth = options.sourceWidth;
        options.outputHeight = options.sourceHeight;
    }
    if (options.maskFormat == 0) {
        options.maskWidth = 0;
        options.maskHeight = 0;
    } else {
        Require(options.maskWidth > 0 && options.maskHeight > 0, VE_ERROR_ARGUMENT);
    }
    Require(options.toFramebuffer != (options.outputTexture != 0), VE_ERROR_ARGUMENT);
    Require(!options.drawLater || !options.drawOnce, VE_ERROR_ARGUMENT);
    Require(options.outputWidth > 0 && options.outputHeight > 0 &&
                IsOneOf(options.outputFormat, VE_FORMAT_RGB, VE_FORMAT_RGBA) &&
                IsOneOf(options.maskFormat, VE_MASK_RGB, VE_MASK_RGBA) && options.closeWaitMs >= 0,
            VE_ERROR_ARGUMENT);
    return options;
}

bool IsDrawable(const VEView& view) {
    return std::isfinite(view.x) && std::isfinite(view.y) && std::isfinite(view.zoom) &&
           view.zoom < 6;
}

VEDrawOptions CheckedDraw(const VEDrawOptions* given) {
    const VEDrawOptions options = ReadStruct(given);
    Require(options.rotation >= 0 && options.rotation < 360 && options.rotation % 90 == 0,
            VE_ERROR_ARGUMENT);
    Require(options.view == nullptr || IsDrawable(*options.view), VE_ERROR_ARGUMENT);
    Require(options.stickers != nullptr || options.stickerCount == 0, VE_ERROR_ARGUMENT);
    return options;
}

VEUnit CheckedUnit(const VEUnit* given) {
    Require(given != nullptr, VE_ERROR_ARGUMENT);
    const VEUnit unit = ReadStruct(given);
    const bool empty = unit.size == 0 && (unit.flags & VE_UNIT_END) != 0;
    Require(empty || (unit.data != nullptr && unit.size > 0), VE_ERROR_ARGUMENT);
    Require(unit.waitUs >= 0 && (unit.flags & ~(VE_UNIT_CONFIG | VE_UNIT_END)) == 0,
            VE_ERROR_ARGUMENT);
    return unit;
}

}  // namespace

VEResult VECheckSource(int32_t source) {
    return Guarded([&] {
        RequireGLFor(source);
        const bool decoded = source == VE_SOURCE_H264 || source == VE_SOURCE_MJPEG;
        return decoded ? CheckDecoder(source) : VE_OK;
    });
}

VEResult VECreateRenderer(const VERendererOptions* options, VERenderer** renderer) {
    if (renderer == nullptr) {
        return VE_ERROR_ARGUMENT;
    }
    *renderer = nullptr;
    return Guarded([&] {
        Require(options != nullptr, VE_ERROR_ARGUMENT);
        *renderer = AsHandle(new GuardedRenderer(CheckedOptions(options)));
        return VE_OK;
    });
}

VEResult VEDraw(VERenderer* renderer, const VEDrawOptions* options, VEDrawn* drawn) {
    return Guarded([&] {
        GuardedRenderer& guarded = AsGuarded(renderer);
        Require(drawn == nullptr || CanWrite(drawn), VE_ERROR_ARGUMENT);
        const VEDrawn result = guarded.draw(CheckedDraw(options));
        if (drawn != nullptr) {
            WriteStruct(result, drawn);
        }
        return VE_OK;
    });
}

VEResult VEQueueUnit(VERenderer* renderer, const VEUnit* unit) {
    return Guarded([&] { return AsGuarded(renderer).decoder().queue(CheckedUnit(unit)); });
}

VEResult VEFlush(VERenderer* renderer) {
    return Guarded([&] { return AsGuarded(renderer).decoder().flush(); });
}

VEResult VEGetDecoderState(VERenderer* renderer, VEDecoderState* state) {
    return Guarded([&] {
        const GuardedRenderer& guarded = AsGuarded(renderer);
        Require(CanWrite(state), VE_ERROR_ARGUMENT);
        VEDecoderState now = VEMakeDecoderState();
        guarded.decoderState(now);
        WriteStruct(now, state);
        return VE_OK;
    });
}

VEResult VEGetSurface(VERenderer* renderer, void** surface, void** surfaceTexture) {
    return Guarded([&] {
        const DecoderSource& decoder = AsGuarded(renderer).decoder();
        if (surface != nullptr) {
            *surface = decoder.surface();
        }
        if (surfaceTexture != nullptr) {
            *surfaceTexture = decoder.surfaceTexture();
        }
        return VE_OK;
    });
}

VEResult VECloseRenderer(VERenderer* renderer, VEContext context) {
    return Guarded([&] {
        GuardedRenderer& guarded = AsGuarded(renderer);
        const VEResult result = guarded.close(context);
        delete &guarded;
        return result;
    });
}
