#include "Version.h"

#include <GLES3/gl3.h>

#include <exception>
#include <sstream>

#include "offscreen/OffscreenContext.h"
#include "support/Libav.h"

namespace {

std::string Dotted(unsigned version) {
    return std::to_string(AV_VERSION_MAJOR(version)) + "." +
           std::to_string(AV_VERSION_MINOR(version)) + "." +
           std::to_string(AV_VERSION_MICRO(version));
}

std::string Encoders() {
    std::string list;
    for (const char* name : {"libx264", "libx265", "libvpx-vp9"}) {
        list += std::string(list.empty() ? "" : ", ") + name +
                (avcodec_find_encoder_by_name(name) != nullptr ? "" : " (missing)");
    }
    return list;
}

std::string GlText() {
    try {
        const OffscreenContext context;
        const auto text = [](GLenum name) {
            return std::string(reinterpret_cast<const char*>(glGetString(name)));
        };
        return text(GL_VERSION) + ", " + text(GL_RENDERER);
    } catch (const std::exception& error) {
        return error.what();
    }
}

}  // namespace

std::string CodecVersions() {
    return std::string("vornplay and libvornrenderer " VORN_VERSION "\nlibavcodec ") +
           Dotted(avcodec_version()) + ", libavformat " + Dotted(avformat_version());
}

std::string VersionText() {
    std::ostringstream text;
    text << CodecVersions() << "\nencoders: " << Encoders() << "\nGL: " << GlText();
    return text.str();
}
