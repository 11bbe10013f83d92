#include "GuardedDraw.h"

#include <optional>

#include <GLES2/gl2ext.h>

#include "Failure.h"
#include "GLStateGuard.h"
#include "PicturePlace.h"
#include "Sources.h"

namespace {

constexpr int32_t kCloseWaitMs = 50;

bool IsDelayed(const VERendererOptions& options) {
    const bool raw = options.source == VE_SOURCE_RGB || options.source == VE_SOURCE_RGBA;
    return raw && options.drawLater;
}

DecoderSettings SettingsOf(const VERendererOptions& options, const GLFeatures& features) {
    DecoderSettings settings = {};
    settings.source = options.source;
    settings.width = options.sourceWidth;
    settings.height = options.sourceHeight;
    settings.maxPictureSize = features.maxTextureSize;
    settings.closeWaitMs = options.closeWaitMs > 0 ? options.closeWaitMs : kCloseWaitMs;
    settings.javaVM = options.javaVM;
    settings.onPicture = options.onPicture;
    settings.listener = options.listener;
    return settings;
}

std::unique_ptr<PictureSource> MakeSource(GLNames& names, const GLFeatures& features,
                                          const VERendererOptions& options) {
    switch (options.source) {
        case VE_SOURCE_H264:
        case VE_SOURCE_MJPEG:
            return std::make_unique<DecodedSource>(names, SettingsOf(options, features));
        case VE_SOURCE_TEXTURE_2D: return std::make_unique<TextureSource>(false);
        case VE_SOURCE_TEXTURE_EXTERNAL: return std::make_unique<TextureSource>(true);
        default: break;
    }
    const bool isRgb = options.source == VE_SOURCE_RGB;
    const PixelLayout layout = {isRgb, options.sourceWidth, options.sourceHeight};
    const bool fits =
        options.sourceWidth == options.outputWidth && options.sourceHeight == options.outputHeight;
    return std::make_unique<FrameSource>(names, layout, IsDelayed(options), options.drawOnce, fits);
}

Mask MakeMask(GLNames& names, const VERendererOptions& options) {
    if (options.maskFormat == 0) {
        return {names, nullptr, false};
    }
    const bool isRgb = options.maskFormat == VE_MASK_RGB;
    const PixelLayout layout = {isRgb, options.maskWidth, options.maskHeight};
    return {names, &layout, IsDelayed(options)};
}

/// The GL state of one draw.
class DrawScope {
public:
    DrawScope(const GLFeatures& features, bool keepState) : features_(features) {
        if (keepState) {
            guard_.emplace(features);
        }
        SetDrawState(features);
    }
    ~DrawScope() {
        if (!guard_) {
            UnbindAll(features_);
        }
    }
    DrawScope(const DrawScope&) = delete;
    DrawScope& operator=(const DrawScope&) = delete;

private:
    const GLFeatures& features_;
    std::optional<GLStateGuard> guard_;
};

VEView ViewOf(const VEDrawOptions& options) {
    return options.view != nullptr ? *options.view : VEView{0, 0, VE_ZOOM_FIT};
}

bool Fits(const VEView& view) {
    return view.x == 0 && view.y == 0 && view.zoom == VE_ZOOM_FIT;
}

OVR::Matrix4<float> MatrixOf(const VEView& view) {
    return Multiply(CameraProjection(), CameraView(view.x, view.y, view.zoom));
}

}  // namespace

GuardedDraw::GuardedDraw(const GLFeatures& features, const VERendererOptions& options)
    : features_(features),
      keepState_(options.keepState),
      output_(names_, options),
      pictureMesh_(names_),
      stickerMesh_(names_),
      source_(MakeSource(names_, features, options)),
      mask_(MakeMask(names_, options)) {
    pictureProgram_.build(names_, source_->isExternal(), false);
}

VEDrawn GuardedDraw::draw(const VEDrawOptions& options) {
    const DrawScope scope(features_, keepState_);
    stage(options);
    mask_.take(options);
    const bool asIs = showsAsIs(options);
    const uint32_t direct = asIs ? output_.rgbaTexture() : 0;
    const bool uploaded = direct != 0 && source_->upload(options, direct);
    Picture picture = {0, 0, {}, true, VE_NO_TIME};
    if (!uploaded && !source_->take(options, picture)) {
        return {sizeof(VEDrawn), false, false, VE_NO_TIME};
    }
    const OVR::Matrix4<float> view = output_.upright(MatrixOf(ViewOf(options)));
    if (uploaded) {
        output_.bind();
    } else if (asIs && picture.framebuffer != 0) {
        output_.beginWith(picture.framebuffer);
    } else {
        output_.begin();
        drawPicture(picture, options, view);
    }
    if (options.stickerTexture != 0) {
        drawStickers(options, view);
    }
    return {sizeof(VEDrawn), true, picture.isNew, picture.ptsUs};
}

/// All that can fail, before anything changes.
void GuardedDraw::stage(const VEDrawOptions& options) {
    if (options.mask != nullptr || options.maskTexture != 0) {
        maskedProgram_.build(names_, source_->isExternal(), true);
    }
    if (options.stickerTexture != 0) {
        stickerProgram_.build(names_);
    }
    mask_.stage(options);
    source_->stage(options);
}

/// Whether a draw would give a picture of the output's size as it is. A copy gives the same,
/// several times faster, and an upload even spares the copy.
bool GuardedDraw::showsAsIs(const VEDrawOptions& options) const {
    return output_.takesCopies() && Fits(ViewOf(options)) && options.rotation == 0 &&
           !options.mirror && !isMasked(options);
}

bool GuardedDraw::isMasked(const VEDrawOptions& options) const {
    return mask_.texture() != 0 && !options.hideMask;
}

void GuardedDraw::drawPicture(const Picture& picture, const VEDrawOptions& options,
                              const OVR::Matrix4<float>& view) const {
    const bool masked = isMasked(options);
    const PictureProgram& program = masked ? maskedProgram_ : pictureProgram_;
    program.use(view, Multiply(picture.place, TurnedPlace(options.rotation, options.mirror)));
    if (masked) {
        GLES3::glActiveTexture(GL_TEXTURE1);
        GLES3::glBindTexture(GL_TEXTURE_2D, mask_.texture());
        GLES3::glActiveTexture(GL_TEXTURE0);
    }
    GLES3::glBindTexture(source_->isExternal() ? GL_TEXTURE_EXTERNAL_OES : GL_TEXTURE_2D,
                         picture.texture);
    pictureMesh_.draw();
}

void GuardedDraw::drawStickers(const VEDrawOptions& options,
                               const OVR::Matrix4<float>& view) const {
    stickerProgram_.use(view);
    GLES3::glBindTexture(GL_TEXTURE_2D, options.stickerTexture);
    stickerMesh_.draw({options.stickers, options.stickerCount, output_.width(), output_.height(),
                       options.mirror});
}

VEResult GuardedDraw::close(VEContext context) {
    const VEResult result = source_->close(context);
    if (context == VE_CONTEXT_LOST) {
        names_.forget();
    }
    return result;
}
