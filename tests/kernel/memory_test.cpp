// What becomes of calls when memory runs out or counts are too large.

#include <gtest/gtest.h>

#include <functional>

#include "CountingAllocator.h"
#include "GlTest.h"
#include "kernel/GlProgram.h"
#include "kernel/geometry/CalibrationLines.h"
#include "kernel/geometry/Dome.h"
#include "kernel/geometry/Globe.h"
#include "kernel/geometry/SpherePatch.h"
#include "kernel/geometry/TesselatedCylinder.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "kernel/geometry/TesselatedQuadInside.h"
#include "kernel/geometry/Torus.h"
#include "kernel/geometry/UnitCubeLines.h"
#include "kernel/geometry/Vignette.h"
#include "support/GlRecorder.h"

namespace {

using OVR::Array;
using OVR::GlGeometry;

class Memory : public GlTest {};

void Build() {
    OVR::GlProgram program = OVR::BuildProgram(
        "#define A\n", "attribute vec4 Position;\nvoid main() { gl_Position = Position; }\n",
        "#define B\n", "void main() { gl_FragColor = vec4(1.0); }\n", 300);
    OVR::DeleteProgram(program);
}

TEST_F(Memory, CallsWithoutMemoryThrowBeforeTheyTouchGl) {
    const std::function<void()> calls[] = {
        [] { OVR::BuildCalibrationLines(2, true).Free(); },
        [] { OVR::BuildDome(1, 1, 1).Free(); },
        [] { OVR::BuildGlobe(1, 1, 1).Free(); },
        [] { OVR::BuildSpherePatch(1).Free(); },
        [] { OVR::BuildTesselatedCylinder(1, 1, 4, 4, 1, 1).Free(); },
        [] { OVR::BuildTesselatedQuad(3, 2, true).Free(); },
        [] { OVR::BuildTesselatedQuadInside(0, 0, true).Free(); },
        [] { OVR::BuildTorus(2, 1, 4, 4, 1, 1).Free(); },
        [] { OVR::BuildUnitCubeLines().Free(); },
        [] { OVR::BuildVignette(1, 1).Free(); },
        Build};
    for (size_t call = 0; call < std::size(calls); ++call) {
        bool done = false;
        int blocks = 1;
        for (; !done; ++blocks) {
            const CountingAllocator allocator(blocks);
            const GlRecorder recorder;
            try {
                calls[call]();
                done = true;
            } catch (const std::bad_alloc&) {
                ASSERT_EQ(GlRecorder::take(), std::vector<std::string>()) << call;
            }
        }
        EXPECT_GT(blocks, 3) << call;
    }
}

TEST_F(Memory, CountsBeyond32BitsThrow) {
    EXPECT_THROW(OVR::BuildCalibrationLines(1 << 29, true), std::bad_alloc);
    EXPECT_THROW(OVR::BuildCalibrationLines(INT32_MAX, false), std::bad_alloc);
    EXPECT_THROW(OVR::BuildCalibrationLines(-1, false), std::bad_alloc);
    EXPECT_THROW(OVR::BuildTesselatedQuad(65535, 65535, false), std::bad_alloc);
    EXPECT_THROW(OVR::BuildTesselatedCylinder(1, 1, 65535, 65535, 1, 1), std::bad_alloc);
    EXPECT_THROW(OVR::BuildTorus(2, 1, 65535, 65535, 1, 1), std::bad_alloc);

    Array<unsigned char> bytes;
    bytes.Resize(4);
    // With a quarter more, the last one wraps to 0.
    for (const uint64_t size : {uint64_t{0xFFFFFFFE}, uint64_t{1} << 32, 0xCCCCCCCCCCCCCCCDU}) {
        EXPECT_THROW(bytes.Reserve(size), std::bad_alloc) << size;
        EXPECT_THROW(bytes.Resize(size), std::bad_alloc) << size;
    }
    EXPECT_EQ(bytes.Size, 4U);
    EXPECT_EQ(bytes.Capacity, 8U);
}

/// The arrays only say that they are that long: whoever read them would crash.
TEST_F(Memory, MeshesBeyondWhatGlCountsThrow) {
    OVR::VertexAttribs attribs;
    Array<unsigned short> indices;
    GlGeometry geometry;
    const GlRecorder recorder;
    indices.Size = 1U << 31;
    EXPECT_THROW(geometry.Create(attribs, indices), std::bad_alloc);
    indices.Size = 0;
    attribs.position.Size = attribs.vertexColor.Size = UINT32_MAX / 28 + 1;
    EXPECT_THROW(geometry.Create(attribs, indices), std::bad_alloc);
    EXPECT_THROW(geometry.Update(attribs, true), std::bad_alloc);
    Array<unsigned char> packed;
    packed.Size = UINT32_MAX;
    EXPECT_THROW(OVR::PackVertexAttribute(packed, attribs.position, 0, GL_FLOAT, 3),
                 std::bad_alloc);
    EXPECT_EQ(geometry.vertexCount + geometry.indexCount, 0);
    EXPECT_TRUE(GlRecorder::take().empty());
}

TEST_F(Memory, MeshesWithoutCellsAreHarmless) {
    for (const unsigned short count : {0, 1}) {
        const unsigned short other = 1 - count;
        OVR::BuildTesselatedQuad(count, other, true).Free();
        OVR::BuildTesselatedCylinder(1, 1, count, other, 1, 1).Free();
        OVR::BuildTorus(2, 1, count, other, 1, 1).Free();
    }
}

}  // namespace
