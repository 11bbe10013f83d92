// Where the fields of records lie, in memory that applications and the library share or that is
// documented field by field. Nothing runs: it compiles, or it does not. The numbers are for
// pointers of 32 bits and of 64 bits.

#include <cstddef>
#include <type_traits>

#include "kernel/GlGeometry.h"
#include "kernel/GlProgram.h"
#include "kernel/Log.h"
#include "kernel/VertexAttribs.h"
#include "render/GPUTextureFilter/GLFbo.h"
#include "render/GPUTextureFilter/GLStateSave.h"
#include "render/GPUTextureFilter/GLTexture.h"
#include "render/GPUTextureFilter/VEGPUData2TextureFilter.h"
#include "render/GPUTextureFilter/VEGPUTexture2TextureFilter.h"
#include "render/Timer.h"
#include "render/VERenderer.h"
#include "render/VEStickerList.h"
#include "src/Render/VERendererBase.h"

namespace {

constexpr size_t Bytes(size_t with32, size_t with64) {
    return sizeof(void*) == 4 ? with32 : with64;
}

#define EXPECT_AT(record, field, with32, with64) \
    static_assert(offsetof(record, field) == Bytes(with32, with64), #record "." #field)
#define EXPECT_SIZE(record, with32, with64) \
    static_assert(sizeof(record) == Bytes(with32, with64), #record)

EXPECT_AT(VERendererMode, outputMode, 0, 0);
EXPECT_AT(VERendererMode, modeType, 4, 4);
EXPECT_AT(VERendererMode, textureWidth, 8, 8);
EXPECT_AT(VERendererMode, textureHeight, 12, 12);
EXPECT_AT(VERendererMode, maskFormat, 16, 16);
EXPECT_AT(VERendererMode, maskWidth, 20, 20);
EXPECT_AT(VERendererMode, maskHeight, 24, 24);
EXPECT_SIZE(VERendererMode, 28, 28);
EXPECT_SIZE(VEStickerList::value_type, 8, 8);
EXPECT_SIZE(VEStickerList, 12, 24);

// A table of virtual functions, then four numbers.
EXPECT_SIZE(VERendererBase, 20, 24);
static_assert(OVR::LogMessage_Debug == 0x201 && OVR::LogMessage_Assert == 0x202, "LogMessageType");
static_assert(static_cast<int>(OVR::ovrProgramParmType::BufferUniform) == 10, "ovrProgramParmType");
static_assert(!std::has_virtual_destructor<VERendererBase>::value, "VERendererBase");

EXPECT_AT(GLTexture, m_format, 0, 0);
EXPECT_AT(GLTexture, m_pixels, 4, 8);
EXPECT_AT(GLTexture, m_byteSize, 8, 16);
EXPECT_AT(GLTexture, m_textureId, 12, 20);
EXPECT_AT(GLTexture, m_width, 16, 24);
EXPECT_AT(GLTexture, m_height, 20, 28);
EXPECT_AT(GLTexture, m_pbo, 24, 32);
EXPECT_AT(GLTexture, m_pendingPbo, 32, 40);
EXPECT_AT(GLTexture, m_nextPbo, 36, 44);
EXPECT_AT(GLTexture, m_usePbo, 40, 48);
EXPECT_SIZE(GLTexture, 44, 56);
EXPECT_AT(GLFbo, m_extraFbo, 0, 0);
EXPECT_AT(GLFbo, m_fbo, 4, 4);
EXPECT_AT(GLFbo, m_width, 8, 8);
EXPECT_AT(GLFbo, m_height, 12, 12);
EXPECT_AT(GLFbo, m_format, 16, 16);
EXPECT_SIZE(GLFbo, 20, 20);
EXPECT_SIZE(GLStateSave, 68, 68);
EXPECT_SIZE(GPUTextureFilterBaseImpl, 308, 312);
EXPECT_SIZE(GPUData2TextureFilter, 316, 328);
EXPECT_SIZE(GPUTexture2TextureFilter, 312, 320);

// Two doubles, a flag and two time stamps of two C longs each.
EXPECT_SIZE(Timer, 40, 56);

using Floats = OVR::Array<float>;
EXPECT_AT(Floats, Data, 0, 0);
EXPECT_AT(Floats, Size, 4, 8);
EXPECT_AT(Floats, Capacity, 8, 12);
EXPECT_SIZE(Floats, 12, 16);

using OVR::VertexAttribs;
EXPECT_AT(VertexAttribs, position, 0, 0);
EXPECT_AT(VertexAttribs, normal, 12, 16);
EXPECT_AT(VertexAttribs, tangent, 24, 32);
EXPECT_AT(VertexAttribs, binormal, 36, 48);
EXPECT_AT(VertexAttribs, vertexColor, 48, 64);
EXPECT_AT(VertexAttribs, texCoord, 60, 80);
EXPECT_AT(VertexAttribs, texCoord1, 72, 96);
EXPECT_AT(VertexAttribs, jointIndices, 84, 112);
EXPECT_AT(VertexAttribs, jointWeights, 96, 128);
EXPECT_SIZE(VertexAttribs, 108, 144);

using OVR::GlGeometry;
EXPECT_AT(GlGeometry, vertexBuffer, 0, 0);
EXPECT_AT(GlGeometry, indexBuffer, 4, 4);
EXPECT_AT(GlGeometry, vertexArrayObject, 8, 8);
EXPECT_AT(GlGeometry, primitiveType, 12, 12);
EXPECT_AT(GlGeometry, vertexCount, 16, 16);
EXPECT_AT(GlGeometry, indexCount, 20, 20);
EXPECT_AT(GlGeometry, localBounds, 24, 24);
EXPECT_SIZE(GlGeometry, 48, 48);

EXPECT_SIZE(OVR::ovrProgramParm, 8, 16);
EXPECT_SIZE(OVR::ovrUniform, 12, 12);
using OVR::GlProgram;
EXPECT_AT(GlProgram, Program, 0, 0);
EXPECT_AT(GlProgram, VertexShader, 4, 4);
EXPECT_AT(GlProgram, FragmentShader, 8, 8);
EXPECT_AT(GlProgram, ViewID, 12, 12);
EXPECT_AT(GlProgram, ProjectionMatrix, 60, 60);
EXPECT_AT(GlProgram, Uniforms, 72, 72);
EXPECT_AT(GlProgram, NumTextureBindings, 168, 168);
EXPECT_AT(GlProgram, UseMultiview, 176, 176);
EXPECT_AT(GlProgram, MvpmLocation, 180, 180);
EXPECT_AT(GlProgram, JointMatricesBinding, 216, 216);
EXPECT_SIZE(GlProgram, 220, 220);

}  // namespace
