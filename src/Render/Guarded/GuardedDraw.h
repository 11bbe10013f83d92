#pragma once

#include <memory>

#include "GLFeatures.h"
#include "GLNames.h"
#include "Mask.h"
#include "Meshes.h"
#include "OutputTarget.h"
#include "PictureSource.h"
#include "Programs.h"

/// A guarded renderer's GL side: its source, its mask, and what draws them.
///
/// \thread the GL thread.
class GuardedDraw {
public:
    /// \param options of full size and checked. Changes GL state as a draw does. Throws Failure and
    ///                std::bad_alloc.
    GuardedDraw(const GLFeatures& features, const VERendererOptions& options);

    /// Draws \p options, which are of full size. Throws Failure and std::bad_alloc.
    VEDrawn draw(const VEDrawOptions& options);

    const GLFeatures& features() const { return features_; }
    PictureSource& source() { return *source_; }
    /// Ends the source; only the destructor may follow. It makes no GL call if the context is lost.
    VEResult close(VEContext context);

private:
    void stage(const VEDrawOptions& options);
    bool showsAsIs(const VEDrawOptions& options) const;
    bool isMasked(const VEDrawOptions& options) const;
    void drawPicture(const Picture& picture, const VEDrawOptions& options,
                     const OVR::Matrix4<float>& view) const;
    void drawStickers(const VEDrawOptions& options, const OVR::Matrix4<float>& view) const;

    GLFeatures features_;
    bool keepState_;
    GLNames names_;  ///< Destroyed after all that use the names.
    OutputTarget output_;
    PictureMesh pictureMesh_;
    StickerMesh stickerMesh_;
    std::unique_ptr<PictureSource> source_;
    Mask mask_;
    PictureProgram pictureProgram_;
    PictureProgram maskedProgram_;
    StickerProgram stickerProgram_;
};
