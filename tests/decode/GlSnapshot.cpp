#include "GlSnapshot.h"

// After gl3.h, whose types it uses.
#include <GLES2/gl2ext.h>

namespace {

struct Query {
    const char* name;
    GLenum value;
};

#define QUERY(name) \
    Query {         \
#name, name \
    }

// clang-format off
constexpr Query kState[] = {
    QUERY(GL_ACTIVE_TEXTURE), QUERY(GL_CURRENT_PROGRAM), QUERY(GL_VERTEX_ARRAY_BINDING),
    QUERY(GL_DRAW_FRAMEBUFFER_BINDING), QUERY(GL_READ_FRAMEBUFFER_BINDING),
    QUERY(GL_RENDERBUFFER_BINDING), QUERY(GL_ARRAY_BUFFER_BINDING),
    QUERY(GL_ELEMENT_ARRAY_BUFFER_BINDING), QUERY(GL_PIXEL_UNPACK_BUFFER_BINDING),
    QUERY(GL_PIXEL_PACK_BUFFER_BINDING), QUERY(GL_COPY_READ_BUFFER_BINDING),
    QUERY(GL_COPY_WRITE_BUFFER_BINDING), QUERY(GL_UNIFORM_BUFFER_BINDING),
    QUERY(GL_UNPACK_ALIGNMENT), QUERY(GL_UNPACK_ROW_LENGTH), QUERY(GL_UNPACK_SKIP_ROWS),
    QUERY(GL_UNPACK_SKIP_PIXELS), QUERY(GL_UNPACK_IMAGE_HEIGHT), QUERY(GL_UNPACK_SKIP_IMAGES),
    QUERY(GL_PACK_ALIGNMENT), QUERY(GL_PACK_ROW_LENGTH), QUERY(GL_VIEWPORT),
    QUERY(GL_BLEND), QUERY(GL_BLEND_SRC_RGB), QUERY(GL_BLEND_DST_RGB), QUERY(GL_BLEND_SRC_ALPHA),
    QUERY(GL_BLEND_DST_ALPHA), QUERY(GL_BLEND_EQUATION_RGB), QUERY(GL_BLEND_EQUATION_ALPHA),
    QUERY(GL_BLEND_COLOR), QUERY(GL_SCISSOR_TEST), QUERY(GL_SCISSOR_BOX), QUERY(GL_DEPTH_TEST),
    QUERY(GL_DEPTH_FUNC), QUERY(GL_DEPTH_WRITEMASK), QUERY(GL_DEPTH_RANGE),
    QUERY(GL_DEPTH_CLEAR_VALUE), QUERY(GL_CULL_FACE), QUERY(GL_CULL_FACE_MODE), QUERY(GL_FRONT_FACE),
    QUERY(GL_STENCIL_TEST), QUERY(GL_STENCIL_FUNC), QUERY(GL_STENCIL_REF),
    QUERY(GL_STENCIL_WRITEMASK), QUERY(GL_COLOR_WRITEMASK), QUERY(GL_COLOR_CLEAR_VALUE),
    QUERY(GL_DITHER), QUERY(GL_POLYGON_OFFSET_FILL), QUERY(GL_SAMPLE_COVERAGE),
    QUERY(GL_SAMPLE_ALPHA_TO_COVERAGE), QUERY(GL_RASTERIZER_DISCARD),
    QUERY(GL_PRIMITIVE_RESTART_FIXED_INDEX), QUERY(GL_LINE_WIDTH)};
constexpr Query kUnitState[] = {
    QUERY(GL_TEXTURE_BINDING_2D), QUERY(GL_TEXTURE_BINDING_EXTERNAL_OES),
    QUERY(GL_TEXTURE_BINDING_CUBE_MAP), QUERY(GL_TEXTURE_BINDING_3D), QUERY(GL_SAMPLER_BINDING)};
// clang-format on

#undef QUERY

constexpr GLenum kUnits = 8;

std::vector<GLint> Read(GLenum name) {
    std::vector<GLint> values(4);
    glGetIntegerv(name, values.data());
    return values;
}

}  // namespace

GlSnapshot::GlSnapshot() {
    for (const Query& query : kState) {
        values_[query.name] = Read(query.value);
    }
    ReadUnits();
}

void GlSnapshot::ReadUnits() {
    for (GLenum unit = 0; unit < kUnits; ++unit) {
        glActiveTexture(GL_TEXTURE0 + unit);
        for (const Query& query : kUnitState) {
            values_[query.name + (" " + std::to_string(unit))] = Read(query.value);
        }
    }
    glActiveTexture(static_cast<GLenum>(values_["GL_ACTIVE_TEXTURE"].front()));
}

std::set<std::string> GlSnapshot::ChangedSince(const GlSnapshot& earlier) const {
    std::set<std::string> changed;
    for (const auto& [name, value] : values_) {
        if (value != earlier.values_.at(name)) {
            changed.insert(name);
        }
    }
    return changed;
}
