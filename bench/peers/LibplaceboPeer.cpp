#include "LibplaceboPeer.h"

#include <libplacebo/log.h>
#include <libplacebo/opengl.h>
#include <libplacebo/renderer.h>
#include <libplacebo/utils/upload.h>

#include <stdexcept>

#include "TexturePixels.h"

namespace {

template <typename Pointer>
Pointer Checked(Pointer pointer, const char* step) {
    if (pointer == nullptr) {
        throw std::runtime_error(std::string("libplacebo: ") + step);
    }
    return pointer;
}

class LibplaceboPeer : public Peer {
public:
    LibplaceboPeer(const FrameCase& frame, float scale)
        : width_(frame.width), height_(frame.height) {
        data_.type = PL_FMT_UNORM;
        data_.width = frame.width;
        data_.height = frame.height;
        const int channels = frame.alpha ? 4 : 3;
        for (int i = 0; i < channels; ++i) {
            data_.component_size[i] = 8;
            data_.component_map[i] = i;
        }
        data_.pixel_stride = static_cast<size_t>(channels);
        params_.upscaler = &pl_filter_nearest;
        params_.skip_anti_aliasing = true;
        makeTarget();
        image_ = target_;
        const float x = 0.5F * static_cast<float>(width_);
        const float y = 0.5F * static_cast<float>(height_);
        image_.crop = {x - x / scale, y - y / scale, x + x / scale, y + y / scale};
    }
    ~LibplaceboPeer() override {
        pl_tex_destroy(gl_->gpu, &source_);
        pl_tex_destroy(gl_->gpu, &output_);
        pl_renderer_destroy(&renderer_);
        pl_opengl_destroy(&gl_);
        pl_log_destroy(&log_);
    }

    void draw(const void* pixels) override {
        data_.pixels = pixels;
        const bool done = pl_upload_plane(gl_->gpu, &image_.planes[0], &source_, &data_) &&
                          pl_render_image(renderer_, &image_, &target_, &params_);
        if (!done) {
            throw std::runtime_error("libplacebo does not draw");
        }
        pl_gpu_finish(gl_->gpu);
    }

    std::vector<unsigned char> picture() override {
        return ReadTexture(pl_opengl_unwrap(gl_->gpu, output_, nullptr, nullptr, nullptr), width_,
                           height_);
    }

private:
    static pl_opengl open(pl_log log) {
        pl_opengl_params params = {};
        params.allow_software = true;
        return pl_opengl_create(log, &params);
    }

    void makeTarget() {
        pl_tex_params params = {};
        params.w = width_;
        params.h = height_;
        params.format = Checked(pl_find_named_fmt(gl_->gpu, "rgba8"), "a format");
        params.renderable = true;
        output_ = Checked(pl_tex_create(gl_->gpu, &params), "an output");
        target_.num_planes = 1;
        target_.planes[0].texture = output_;
        target_.planes[0].components = 4;
        for (int i = 0; i < 4; ++i) {
            target_.planes[0].component_mapping[i] = i;
        }
        target_.repr = pl_color_repr_rgb;
        target_.repr.alpha = PL_ALPHA_INDEPENDENT;
        target_.color = pl_color_space_srgb;
    }

    int width_;
    int height_;
    pl_log log_ = Checked(pl_log_create(PL_API_VER, nullptr), "a log");
    pl_opengl gl_ = Checked(open(log_), "a context");
    pl_renderer renderer_ = Checked(pl_renderer_create(log_, gl_->gpu), "a renderer");
    pl_render_params params_ = pl_render_fast_params;
    pl_plane_data data_ = {};
    pl_tex source_ = nullptr;
    pl_tex output_ = nullptr;
    pl_frame image_ = {};
    pl_frame target_ = {};
};

}  // namespace

std::unique_ptr<Peer> MakeLibplaceboPeer(const FrameCase& frame, float scale) {
    return std::make_unique<LibplaceboPeer>(frame, scale);
}
