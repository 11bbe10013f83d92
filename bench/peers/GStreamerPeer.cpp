#include "GStreamerPeer.h"

#include <EGL/egl.h>
#include <GLES3/gl3.h>
#include <gst/app/gstappsink.h>
#include <gst/app/gstappsrc.h>
#include <gst/gl/egl/gstgldisplay_egl.h>
#include <gst/gl/gl.h>
#include <gst/video/video.h>

#include <stdexcept>
#include <string>

namespace {

template <typename Object>
struct Unref {
    void operator()(Object* object) const { gst_object_unref(object); }
};
struct UnrefSample {
    void operator()(GstSample* sample) const { gst_sample_unref(sample); }
};
using Element = std::unique_ptr<GstElement, Unref<GstElement>>;
using Sample = std::unique_ptr<GstSample, UnrefSample>;

/// Gives the pipeline the current context's display, which needs no window.
void ShareDisplay(GstElement* pipeline) {
    GstGLDisplay* display =
        GST_GL_DISPLAY(gst_gl_display_egl_new_with_egl_display(eglGetCurrentDisplay()));
    gst_gl_display_filter_gl_api(display, GST_GL_API_GLES2);
    GstContext* context = gst_context_new(GST_GL_DISPLAY_CONTEXT_TYPE, TRUE);
    gst_context_set_gl_display(context, display);
    gst_element_set_context(pipeline, context);
    gst_context_unref(context);
    gst_object_unref(display);
}

std::string Pipeline(const FrameCase& frame, float scale) {
    const std::string zoom = std::to_string(scale);
    return "appsrc name=in format=time block=true caps=video/x-raw,format=" +
           std::string(frame.alpha ? "RGBA" : "RGB") + ",width=" + std::to_string(frame.width) +
           ",height=" + std::to_string(frame.height) +
           ",framerate=25/1 ! glupload ! glcolorconvert ! gltransformation ortho=true scale-x=" +
           zoom + " scale-y=" + zoom +
           " ! video/x-raw(memory:GLMemory),format=RGBA ! appsink name=out sync=false";
}

class GStreamerPeer : public Peer {
public:
    GStreamerPeer(const FrameCase& frame, float scale) : bytes_(frame.bytes()) {
        gst_init(nullptr, nullptr);
        GError* error = nullptr;
        pipeline_.reset(gst_parse_launch(Pipeline(frame, scale).c_str(), &error));
        if (error != nullptr) {
            throw std::runtime_error(std::string("GStreamer: ") + error->message);
        }
        ShareDisplay(pipeline_.get());
        in_.reset(gst_bin_get_by_name(GST_BIN(pipeline_.get()), "in"));
        out_.reset(gst_bin_get_by_name(GST_BIN(pipeline_.get()), "out"));
        gst_element_set_state(pipeline_.get(), GST_STATE_PLAYING);
    }
    ~GStreamerPeer() override {
        sample_.reset();
        gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
    }

    void draw(const void* pixels) override {
        GstBuffer* buffer =
            gst_buffer_new_wrapped_full(GST_MEMORY_FLAG_READONLY, const_cast<void*>(pixels), bytes_,
                                        0, bytes_, nullptr, nullptr);
        gst_app_src_push_buffer(GST_APP_SRC(in_.get()), buffer);
        constexpr GstClockTime kLongest = 10 * GST_SECOND;
        sample_.reset(gst_app_sink_try_pull_sample(GST_APP_SINK(out_.get()), kLongest));
        if (sample_ == nullptr) {
            throw std::runtime_error("GStreamer does not draw");
        }
        finish();
    }

    std::vector<unsigned char> picture() override {
        GstVideoInfo info;
        GstVideoFrame frame;
        if (gst_video_info_from_caps(&info, gst_sample_get_caps(sample_.get())) == FALSE ||
            gst_video_frame_map(&frame, &info, gst_sample_get_buffer(sample_.get()),
                                GST_MAP_READ) == FALSE) {
            throw std::runtime_error("GStreamer gives no pixels");
        }
        const auto* first =
            static_cast<const unsigned char*>(GST_VIDEO_FRAME_PLANE_DATA(&frame, 0));
        std::vector<unsigned char> pixels(first, first + GST_VIDEO_FRAME_SIZE(&frame));
        gst_video_frame_unmap(&frame);
        return pixels;
    }

private:
    void finish() const {
        const auto* memory = reinterpret_cast<GstGLBaseMemory*>(
            gst_buffer_peek_memory(gst_sample_get_buffer(sample_.get()), 0));
        gst_gl_context_thread_add(
            memory->context, [](GstGLContext*, gpointer) { glFinish(); }, nullptr);
    }

    size_t bytes_;
    Element pipeline_;
    Element in_;
    Element out_;
    Sample sample_;
};

}  // namespace

std::unique_ptr<Peer> MakeGStreamerPeer(const FrameCase& frame, float scale) {
    return std::make_unique<GStreamerPeer>(frame, scale);
}
