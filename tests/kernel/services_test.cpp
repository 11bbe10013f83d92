#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cstring>
#include <string>
#include <vector>

#include "kernel/Allocator.h"
#include "kernel/Array.h"
#include "kernel/Log.h"
#include "kernel/Matrix4.h"
#include "kernel/StringUtils.h"
#include "kernel/System.h"
#include "kernel/Vector.h"
#include "support/LogCapture.h"

namespace {

using OVR::Allocator;
using OVR::Log;

class Services : public testing::Test {
protected:
    ~Services() override { Log::GetDefaultLog()->LoggingMask = 0; }
};

TEST_F(Services, LogIsSilentUntilItsMaskIsWidened) {
    EXPECT_EQ(Log::GetDefaultLog(), Log::GetGlobalLog());
    EXPECT_EQ(0U, Log::GetDefaultLog()->LoggingMask);
    OVR::LogError("x");
    OVR::LogText("x");
    EXPECT_TRUE(LogCapture::Take().empty());

    Log::GetDefaultLog()->LoggingMask = 0x101;
    OVR::LogError("x%d", 1);
    OVR::LogText("y");
    EXPECT_EQ(LogCapture::Take(), (LogCapture::Lines{{6, "OVR", "Error: x1\n"}, {4, "OVR", "y"}}));
}

TEST_F(Services, LogNeverWritesDebugAndAssertMessages) {
    Log::GetDefaultLog()->LoggingMask = 0xFFFFFFFF;
    OVR::LogDebug("x");
    OVR::LogDebugText("x");
    OVR::LogAssert("x");
    EXPECT_TRUE(LogCapture::Take().empty());
    // A type without a name is ordinary output.
    Log::GetGlobalLog()->LogMessage(static_cast<OVR::LogMessageType>(0x140), "odd");
    EXPECT_EQ("odd", LogCapture::TakeTexts().at(0));
    Log::DefaultLogOutput(OVR::LogMessage_Debug, "a");
    Log::DefaultLogOutput(OVR::LogMessage_DebugText, "b");
    Log::DefaultLogOutput(OVR::LogMessage_Assert, "c");
    EXPECT_EQ(LogCapture::Take(),
              (LogCapture::Lines{{3, "OVR", "a"}, {3, "OVR", "b"}, {6, "OVR", "c"}}));
}

std::string Format(unsigned size, OVR::LogMessageType type, const char* fmt, ...) {
    std::vector<char> buffer(size + 1, '#');
    va_list args;
    va_start(args, fmt);
    Log::FormatLog(buffer.data(), size, type, fmt, args);
    va_end(args);
    EXPECT_EQ('#', buffer[size]) << "wrote behind the buffer";
    return buffer.data();
}

TEST_F(Services, LogCutsLinesToTheBuffer) {
    EXPECT_EQ("Assert: 7\n", Format(64, OVR::LogMessage_Assert, "%d", 7));
    EXPECT_EQ("Debug: 7\n", Format(64, OVR::LogMessage_Debug, "%d", 7));
    EXPECT_EQ("7", Format(64, OVR::LogMessage_DebugText, "%d", 7));
    EXPECT_EQ("Error: ab\n", Format(11, OVR::LogMessage_Error, "ab"));
    EXPECT_EQ("Error: ab", Format(10, OVR::LogMessage_Error, "ab"));
    EXPECT_EQ("Error: a", Format(9, OVR::LogMessage_Error, "ab"));
    EXPECT_EQ("Err", Format(4, OVR::LogMessage_Error, "ab"));
    EXPECT_EQ("", Format(1, OVR::LogMessage_Error, "ab"));

    Log::GetDefaultLog()->LoggingMask = 0x100;
    OVR::LogError("%s", std::string(5000, 'e').c_str());
    EXPECT_EQ("Error: " + std::string(4088, 'e'), LogCapture::TakeTexts().at(0));
}

TEST_F(Services, VaCutsTextsTo1023Bytes) {
    const std::string text(1023, 't');
    EXPECT_EQ(text, static_cast<const char*>(OVR::StringUtils::Va("%s", text.c_str())));
    EXPECT_EQ(text, static_cast<const char*>(OVR::StringUtils::Va("%sand more", text.c_str())));
}

TEST_F(Services, DestroyedLogIsNoLongerGlobal) {
    {
        Log log(0x100);
        EXPECT_EQ(0x200U, Log().LoggingMask);
        Log::SetGlobalLog(&log);
        OVR::LogText("z");
        EXPECT_EQ("z", LogCapture::TakeTexts().at(0));
    }
    EXPECT_EQ(nullptr, Log::GetGlobalLog());
    OVR::LogText("nobody hears");
    EXPECT_TRUE(LogCapture::Take().empty());
    Log::SetGlobalLog(Log::GetDefaultLog());
}

/// Hands out one block at a chosen offset, or nothing.
struct FixedAllocator : Allocator {
    void* Alloc(size_t size) override {
        given = size;
        return size <= sizeof(block) - 64 ? block + offset : nullptr;
    }
    void* Realloc(void* p, size_t) override { return p; }
    void Free(void* p) override { freed = p; }
    void onSystemShutdown() override { shutDown = true; }

    alignas(64) unsigned char block[512];
    size_t offset = 0;
    size_t given = 0;
    void* freed = nullptr;
    bool shutDown = false;
};

TEST_F(Services, AlignedBlocksRememberTheirStart) {
    FixedAllocator heap;
    auto* aligned = static_cast<unsigned char*>(heap.AllocAligned(10, 16));
    EXPECT_EQ(heap.block + 16, aligned);
    uint32_t stored = 0;
    std::memcpy(&stored, aligned - 4, 4);
    EXPECT_EQ(16U, stored);

    for (const size_t align : {0U, 1U, 4U, 5U, 6U, 7U, 8U, 12U, 16U, 63U, 64U}) {
        for (heap.offset = 0; heap.offset < 64; heap.offset += 4) {
            aligned = static_cast<unsigned char*>(heap.AllocAligned(100, align));
            ASSERT_EQ(0U, reinterpret_cast<uintptr_t>(aligned) % std::max<size_t>(align, 4));
            ASSERT_GE(aligned - (heap.block + heap.offset), 4);
            ASSERT_LE(aligned + 100, heap.block + heap.offset + heap.given) << align;
            heap.FreeAligned(aligned);
            ASSERT_EQ(heap.block + heap.offset, heap.freed);
        }
    }
    EXPECT_EQ(nullptr, heap.AllocAligned(4000, 16));
    for (const size_t align : {SIZE_MAX, SIZE_MAX - 2, size_t{0xFFFFFFFF}, size_t{16}}) {
        EXPECT_EQ(nullptr, heap.AllocAligned(SIZE_MAX - 15, align)) << align;
    }
}

TEST_F(Services, FirstInstallationHoldsUntilItIsDestroyed) {
    Allocator* const installed = Allocator::pInstance;
    EXPECT_EQ(OVR::DefaultAllocator::InitSystemSingleton(), installed);
    FixedAllocator other;
    Log log;
    OVR::System::Init(&log, &other);
    EXPECT_EQ(installed, Allocator::pInstance);
    EXPECT_EQ(Log::GetDefaultLog(), Log::GetGlobalLog());

    OVR::System::Destroy();
    EXPECT_FALSE(OVR::System::IsInitialized());
    OVR::System::Destroy();
    OVR::System::Init(&log, &other);
    EXPECT_TRUE(OVR::System::IsInitialized());
    EXPECT_EQ(&log, Log::GetGlobalLog());
    OVR::System::Destroy();
    EXPECT_TRUE(other.shutDown);
    EXPECT_EQ(Log::GetDefaultLog(), Log::GetGlobalLog());
    OVR::System::Init(Log::GetDefaultLog(), installed);
}

TEST_F(Services, ArrayGrowsByAQuarterAndGivesHalfBack) {
    OVR::Array<short> array;
    EXPECT_EQ(nullptr, array.Data);
    array.Resize(10);  // 10 + 2, a multiple of four already.
    EXPECT_EQ(12U, array.Capacity);
    array[9] = 77;
    array.Resize(12);  // At the capacity: 12 + 3, rounded up.
    EXPECT_EQ(16U, array.Capacity);
    EXPECT_EQ(77, array[9]);
    array.Resize(8);  // Half is not below half.
    EXPECT_EQ(16U, array.Capacity);
    array.Resize(5);
    EXPECT_EQ(8U, array.Capacity);
    array.Resize(6);
    EXPECT_EQ(8U, array.Capacity);
    array.Reserve(4);  // Less than Size: the caller takes care of it.
    EXPECT_EQ(6U, array.Size);
    EXPECT_EQ(4U, array.Capacity);
    array.Reserve(20);
    array.Resize(6);  // Keeps the room, since it does not shrink.
    EXPECT_EQ(20U, array.Capacity);
    array.Reserve(0);
    EXPECT_EQ(nullptr, array.Data);
    EXPECT_EQ(0U, array.Capacity);
}

TEST_F(Services, ConstantsOfVectorsAndMatrices) {
    const auto sum = [](auto v) { return std::abs(v.x) + std::abs(v.y); };
    EXPECT_EQ(0, sum(OVR::Vector2<float>::ZERO));
    EXPECT_EQ(0, sum(OVR::Vector3<float>::ZERO) + std::abs(OVR::Vector3<float>::ZERO.z));
    EXPECT_EQ(0, sum(OVR::Vector4<double>::ZERO) + std::abs(OVR::Vector4<double>::ZERO.z));
    EXPECT_EQ(0, OVR::Vector4<double>::ZERO.w);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(i % 5 == 0 ? 1 : 0, OVR::Matrix4<float>::IdentityValue.M[i / 4][i % 4]) << i;
    }
}

}  // namespace
