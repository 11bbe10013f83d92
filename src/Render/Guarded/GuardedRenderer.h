#pragma once

#include <atomic>
#include <memory>

#include "../VERendererBase.h"
#include "render/VERendererExt.h"

class DecoderSource;
class GuardedDraw;

/// The renderer behind VERendererExt.h. It also serves the functions of VERenderer.h.
///
/// \thread the GL thread; decoderState: any.
class GuardedRenderer final : public VERendererBase {
public:
    /// \param options of full size, checked but for the limits of GL. Leaves all GL bindings as
    ///                they were. Throws Failure and std::bad_alloc, and leaves nothing behind then.
    explicit GuardedRenderer(const VERendererOptions& options);
    ~GuardedRenderer();

    /// \param options of full size and checked. Throws Failure and std::bad_alloc; nothing has
    ///                changed then.
    VEDrawn draw(const VEDrawOptions& options);
    /// The decoder. Throws Failure where the source has none.
    DecoderSource& decoder() const;
    void decoderState(VEDecoderState& state) const;
    /// Releases everything; only the memory of this object is left. May be repeated.
    VEResult close(VEContext context);

    int Update(void* data, unsigned int size, bool colorMirror, void* maskData, int stickerTexture,
               VEStickerList& stickers) override;
    void Destroy() override;
    int UpdateCompressedData(void* data, int size) override;
    int UpdateUserPosition(float a, float b, float c, float d) override;

private:
    GuardedRenderer(const VERendererOptions& options, VERendererMode mode);

    std::unique_ptr<GuardedDraw> draw_;  ///< Null once closed.
    std::atomic<uint64_t> picturesShown_{0};
    VEView view_ = {0, 0, 2};  ///< Of the functions of VERenderer.h.
};
