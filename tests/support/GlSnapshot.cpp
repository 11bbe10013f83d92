#include "support/GlSnapshot.h"

// After gl32.h, whose types it uses.
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
    QUERY(GL_PIXEL_UNPACK_BUFFER_BINDING),
    QUERY(GL_PIXEL_PACK_BUFFER_BINDING), QUERY(GL_COPY_READ_BUFFER_BINDING),
    QUERY(GL_COPY_WRITE_BUFFER_BINDING), QUERY(GL_UNIFORM_BUFFER_BINDING),
    QUERY(GL_UNPACK_ALIGNMENT), QUERY(GL_UNPACK_ROW_LENGTH), QUERY(GL_UNPACK_SKIP_ROWS),
    QUERY(GL_UNPACK_SKIP_PIXELS), QUERY(GL_UNPACK_IMAGE_HEIGHT), QUERY(GL_UNPACK_SKIP_IMAGES),
    QUERY(GL_PACK_ALIGNMENT), QUERY(GL_PACK_ROW_LENGTH), QUERY(GL_VIEWPORT),
    QUERY(GL_BLEND_COLOR), QUERY(GL_SCISSOR_TEST), QUERY(GL_SCISSOR_BOX), QUERY(GL_DEPTH_TEST),
    QUERY(GL_DEPTH_FUNC), QUERY(GL_DEPTH_WRITEMASK), QUERY(GL_DEPTH_RANGE),
    QUERY(GL_DEPTH_CLEAR_VALUE), QUERY(GL_CULL_FACE), QUERY(GL_CULL_FACE_MODE), QUERY(GL_FRONT_FACE),
    QUERY(GL_STENCIL_TEST), QUERY(GL_STENCIL_FUNC), QUERY(GL_STENCIL_REF),
    QUERY(GL_STENCIL_VALUE_MASK), QUERY(GL_STENCIL_FAIL), QUERY(GL_STENCIL_PASS_DEPTH_FAIL),
    QUERY(GL_STENCIL_PASS_DEPTH_PASS), QUERY(GL_STENCIL_BACK_FUNC), QUERY(GL_STENCIL_BACK_REF),
    QUERY(GL_STENCIL_BACK_WRITEMASK), QUERY(GL_STENCIL_CLEAR_VALUE),
    QUERY(GL_STENCIL_WRITEMASK), QUERY(GL_COLOR_CLEAR_VALUE),
    QUERY(GL_DITHER), QUERY(GL_POLYGON_OFFSET_FILL), QUERY(GL_POLYGON_OFFSET_FACTOR),
    QUERY(GL_POLYGON_OFFSET_UNITS), QUERY(GL_SAMPLE_COVERAGE), QUERY(GL_SAMPLE_COVERAGE_VALUE),
    QUERY(GL_SAMPLE_COVERAGE_INVERT), QUERY(GL_SAMPLE_ALPHA_TO_COVERAGE),
    QUERY(GL_RASTERIZER_DISCARD), QUERY(GL_PRIMITIVE_RESTART_FIXED_INDEX), QUERY(GL_LINE_WIDTH),
    QUERY(GL_TRANSFORM_FEEDBACK_BINDING), QUERY(GL_TRANSFORM_FEEDBACK_BUFFER_BINDING),
    QUERY(GL_TRANSFORM_FEEDBACK_ACTIVE), QUERY(GL_TRANSFORM_FEEDBACK_PAUSED),
    QUERY(GL_PROGRAM_PIPELINE_BINDING), QUERY(GL_DRAW_INDIRECT_BUFFER_BINDING),
    QUERY(GL_SHADER_STORAGE_BUFFER_BINDING), QUERY(GL_PACK_SKIP_ROWS), QUERY(GL_PACK_SKIP_PIXELS),
    QUERY(GL_GENERATE_MIPMAP_HINT), QUERY(GL_SAMPLE_MASK), QUERY(GL_SAMPLE_SHADING)};
constexpr Query kBufferState[] = {
    QUERY(GL_BLEND_SRC_RGB), QUERY(GL_BLEND_DST_RGB), QUERY(GL_BLEND_SRC_ALPHA),
    QUERY(GL_BLEND_DST_ALPHA), QUERY(GL_BLEND_EQUATION_RGB), QUERY(GL_BLEND_EQUATION_ALPHA),
    QUERY(GL_COLOR_WRITEMASK)};
constexpr Query kUnitState[] = {
    QUERY(GL_TEXTURE_BINDING_2D), QUERY(GL_TEXTURE_BINDING_EXTERNAL_OES),
    QUERY(GL_TEXTURE_BINDING_CUBE_MAP), QUERY(GL_TEXTURE_BINDING_3D),
    QUERY(GL_TEXTURE_BINDING_2D_ARRAY), QUERY(GL_SAMPLER_BINDING)};
// clang-format on

#undef QUERY

constexpr GLuint kUnits = 8;
constexpr GLuint kAttributes = 16;
constexpr GLuint kUsedAttributes = 9;  ///< Those of the kernel's geometry.

std::vector<GLint> Read(GLenum name) {
    std::vector<GLint> values(4);
    glGetIntegerv(name, values.data());
    return values;
}

}  // namespace

GlSnapshot::GlSnapshot() : GlSnapshot(static_cast<GLuint>(Read(GL_VERTEX_ARRAY_BINDING)[0])) {}

GlSnapshot::GlSnapshot(GLuint vertexArray) : vertexArray_(vertexArray) {
    for (const Query& query : kState) {
        values_[query.name] = Read(query.value);
    }
    readUnits();
    readDrawBuffers();
    readVertexArray(vertexArray);
    readVertexArray(0);
    glBindVertexArray(static_cast<GLuint>(values_["GL_VERTEX_ARRAY_BINDING"].front()));
}

void GlSnapshot::readUnits() {
    for (GLuint unit = 0; unit < kUnits; ++unit) {
        glActiveTexture(GL_TEXTURE0 + unit);
        for (const Query& query : kUnitState) {
            values_[query.name + (", unit " + std::to_string(unit))] = Read(query.value);
        }
    }
    glActiveTexture(static_cast<GLenum>(values_["GL_ACTIVE_TEXTURE"].front()));
}

void GlSnapshot::readDrawBuffers() {
    const auto buffers = static_cast<GLuint>(Read(GL_MAX_DRAW_BUFFERS).front());
    for (GLuint buffer = 0; buffer < buffers; ++buffer) {
        const std::string suffix = ", draw buffer " + std::to_string(buffer);
        values_["GL_BLEND" + suffix] = {glIsEnabledi(GL_BLEND, buffer)};
        for (const Query& query : kBufferState) {
            std::vector<GLint>& values = values_[query.name + suffix];
            values.resize(4);
            glGetIntegeri_v(query.value, buffer, values.data());
        }
    }
}

void GlSnapshot::readVertexArray(GLuint array) {
    const std::string suffix = ", array " + std::to_string(array);
    glBindVertexArray(array);
    values_["GL_ELEMENT_ARRAY_BUFFER_BINDING" + suffix] = Read(GL_ELEMENT_ARRAY_BUFFER_BINDING);
    std::vector<GLint>& used = values_["GL_VERTEX_ATTRIB_ARRAY_ENABLED 0-8" + suffix];
    std::vector<GLint>& others = values_["GL_VERTEX_ATTRIB_ARRAY_ENABLED 9-15" + suffix];
    std::vector<GLint>& buffers = values_["GL_VERTEX_ATTRIB_ARRAY_BUFFER_BINDING" + suffix];
    used.clear();
    others.clear();
    for (GLuint i = 0; i < kAttributes; ++i) {
        GLint& enabled = (i < kUsedAttributes ? used : others).emplace_back();
        glGetVertexAttribiv(i, GL_VERTEX_ATTRIB_ARRAY_ENABLED, &enabled);
        glGetVertexAttribiv(i, GL_VERTEX_ATTRIB_ARRAY_BUFFER_BINDING, &buffers.emplace_back());
    }
}
