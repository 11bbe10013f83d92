// The decode renderer's calls to Java and to the platform's decoder: their order, their arguments,
// and what becomes of failures. The platform is a fake; GL is real.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <thread>

#include "FakePlatform.h"
#include "StoredText.h"
#include "support/GlRecorder.h"
#include "support/LogCapture.h"
#include "support/RendererHarness.h"
#include "support/Replaced.h"

namespace {

using Journal = std::vector<std::string>;

const Journal kDestroyed = {"ANativeWindow_release", "AMediaCodec_stop", "AMediaCodec_delete",
                            "DeleteGlobalRef", "DeleteGlobalRef"};

VERendererMode Mode(int modeType, int outputMode = VE_OUTPUT_PICTURE) {
    return {outputMode, modeType, 64, 48, VE_MASK_RGBA, 4, 4};
}

void WaitUntil(const std::function<bool()>& condition) {
    for (int i = 0; i < 5000 && !condition(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(condition());
}

long LiveThreads() {
    namespace fs = std::filesystem;
    return std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator());
}

class DecodeCalls : public testing::Test {
protected:
    ~DecodeCalls() override {
        platform.failing.clear();
        platform.listener = nullptr;
        platform.outputIndex = -1;
        platform.releaseStatus = AMEDIA_OK;
        platform.unblockOutput();
        platform.takeJournal();
        LogCapture::Take();
        WaitUntil([this] { return LiveThreads() <= threadsBefore; });
    }

    void* create(VERendererMode mode, JavaVM* jvm) const {
        void* handle = nullptr;
        EXPECT_EQ(VECreateRendererHandle(&handle, static_cast<int>(texture), &mode, jvm), 0);
        EXPECT_NE(handle, nullptr);
        return handle;
    }

    void* create(int modeType = VE_MODE_H264) const {
        return create(Mode(modeType), platform.jvm());
    }

    TestContext context;
    FakePlatform& platform = FakePlatform::Get();
    unsigned texture = NewTexture();
    long threadsBefore = LiveThreads();
};

TEST_F(DecodeCalls, ALifeIsTheStoredSequence) {
    const GlRecorder recorder;
    std::string life;
    const auto noteGlCalls = [&life] {
        for (const std::string& call : GlRecorder::take()) {
            life += call + "\n";
        }
    };
    platform.listener = [&](const std::string& call) {
        noteGlCalls();
        life += call + "\n";
    };
    void* handle = create(VE_MODE_MJPEG);
    noteGlCalls();
    const LogCapture::Lines creation = {
        {4, "VEOESRenderer", "\n LocalInit! \n"},
        {4, "VEAndroidCodec",
         "\n AndroidCodec init success, width (64), height (48), type (video/mjpeg) \n"},
        {4, "VEOESRenderer",
         "\n VEOESRenderer textureId(" + std::to_string(texture) +
             "), textureWidth (64), textureHieght(48), maskWidth(4), maskHeight(4)... "
             "###renderer\n"}};
    EXPECT_EQ(LogCapture::Take(), creation);

    life += "# update\n";
    VEUpdateRenderer(handle, nullptr, 0, true, nullptr);
    GlRecorder::take();  // As of raw frames.
    life += "# destruction\n";
    VEDestroyRenderer(handle);
    noteGlCalls();
    ExpectStored(life, "decode_calls.txt");
    EXPECT_EQ(LogCapture::TakeTexts(),
              (Journal{"VEOESRenderer::Destroy ..######renderer",
                       "destroy android codec start..######renderer",
                       "destroy android codec end..######renderer",
                       "VEOESRenderer::Destroy success ..######renderer"}));
}

TEST_F(DecodeCalls, FailuresAreLoggedAndNoStepIsSkipped) {
    const std::string bridge = "\n OESSurfaceTexture ";
    const std::string renderer = "\n VEOESRenderer ";
    const struct {
        std::string step;
        std::vector<std::string> messages;
    } cases[] = {
        {"FindClass android/graphics/SurfaceTexture",
         {bridge + "FindClass( android/graphics/SurfaceTexture ) failed \n"}},
        {"GetMethodID <init>(I)V", {bridge + "GetMethodID( <init> ) failed \n"}},
        {"NewObject",
         {bridge + "NewObject() failed \n", renderer + "NewObject() failed ...######renderer\n"}},
        {"NewGlobalRef",
         {bridge + "NewGlobalRef() failed \n",
          renderer + "NewGlobalRef() failed ...######renderer\n"}},
        {"GetMethodID updateTexImage()V", {bridge + "couldn't get updateTexImageMethodId \n"}},
        {"GetMethodID setDefaultBufferSize(II)V",
         {bridge + "couldn't get setDefaultBufferSize \n"}},
        {"FindClass android/view/Surface",
         {renderer + "FindClass( android/view/Surface ) failed ...######renderer\n"}},
        {"GetMethodID <init>(Landroid/graphics/SurfaceTexture;)V",
         {renderer + "GetMethodID( <init> ) failed ...######renderer\n"}},
        {"AttachCurrentThread", {}},
        {"ANativeWindow_fromSurface", {}},
        {"AMediaCodec_configure window none 0", {}},
        {"AMediaCodec_start", {}},
    };
    for (const auto& [step, messages] : cases) {
        SCOPED_TRACE(step);
        platform.failing = {step};
        void* handle = create();
        EXPECT_EQ(platform.takeJournal().size(), 23U);
        const auto lines = LogCapture::Take();
        ASSERT_EQ(lines.size(), 3 + messages.size());
        for (size_t i = 0; i < messages.size(); ++i) {
            const bool ofBridge = messages[i].compare(0, bridge.size(), bridge) == 0;
            EXPECT_EQ(lines[1 + i],
                      (LogCapture::Line{4, ofBridge ? "VEOESSurfaceTexture" : "VEOESRenderer",
                                        messages[i]}));
        }
        VEUpdateRenderer(handle, nullptr, 0, true, nullptr);
        const bool latches = step != "GetMethodID updateTexImage()V" && step != "NewGlobalRef";
        EXPECT_EQ(platform.takeJournal(), latches ? Journal{"CallVoidMethod"} : Journal{});
        VEDestroyRenderer(handle);
        WaitUntil([this] { return LiveThreads() <= threadsBefore; });
        platform.takeJournal();
        LogCapture::Take();
    }
}

TEST_F(DecodeCalls, WithoutADecoderNothingIsAskedForAndTheThreadSleeps) {
    platform.failing = {"AMediaCodec_createDecoderByType video/avc"};
    const int polls = platform.polls;
    void* handle = create();
    EXPECT_EQ(platform.takeJournal().size(), 23U) << "configured and started all the same";
    char unit[4] = {};
    VEUpdateCompressedData(handle, unit, 4);
    EXPECT_TRUE(platform.takeJournal().empty());
    const auto sleeps = [] {
        rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_nvcsw;
    };
    long ownSleeps = 0;
    const long before = sleeps();
    bool threadSleeps = false;
    WaitUntil([&] {
        threadSleeps = threadSleeps || sleeps() - before > ++ownSleeps + 50;
        return threadSleeps;
    });
    EXPECT_EQ(platform.polls, polls);
    VEDestroyRenderer(handle);
    EXPECT_EQ(platform.takeJournal(), kDestroyed);
}

TEST_F(DecodeCalls, WithoutAJvmARendererIsInert) {
    void* handle = create(Mode(VE_MODE_H264, VE_OUTPUT_MASKED), nullptr);
    const Image before = Noise({64, 48}, 1);
    Fill(texture, before);
    char unit[4] = {};
    EXPECT_EQ(VEUpdateRenderer(handle, unit, 4, true, unit), 0);
    EXPECT_EQ(VEUpdateCompressedData(handle, unit, 4), 0);
    EXPECT_EQ(VEUpdateUserPosition(handle, 1, 2, 3, 4), 0);
    EXPECT_EQ(ReadBack(texture, {64, 48}).pixels, before.pixels);
    VEDestroyRenderer(handle);
    EXPECT_TRUE(platform.takeJournal().empty());
    EXPECT_EQ(LogCapture::TakeTexts(),
              (Journal{"\n JNI_OnLoad() not called yet ...######renderer\n",
                       "VEOESRenderer::Destroy ..######renderer",
                       "VEOESRenderer::Destroy success ..######renderer"}));
}

TEST_F(DecodeCalls, OnlyOutputModeOneHasAMaskAndAView) {
    static std::vector<float> distances;  // Of the camera, at each draw.
    const Replaced recorder(
        GLES3::glUniformMatrix4fv,
        [](GLint, GLsizei, GLboolean, const GLfloat* matrix) { distances.push_back(matrix[15]); });
    for (const int outputMode : {0, 1, 2}) {
        void* handle = create(Mode(VE_MODE_H264, outputMode), platform.jvm());
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(VEUpdateUserPosition(handle, 0, 0, 0, 0), 0);
            EXPECT_EQ(VEUpdateRenderer(handle, nullptr, 0, true, nullptr), 0);
        }
        VEDestroyRenderer(handle);
    }
    EXPECT_EQ(distances, (std::vector<float>{2, 2, 3}));
}

TEST_F(DecodeCalls, UnitsAreQueuedWholeOrDropped) {
    void* handle = create();
    platform.takeJournal();
    char unit[] = "access unit";
    EXPECT_EQ(VEUpdateCompressedData(handle, nullptr, 5), 0);
    EXPECT_EQ(VEUpdateCompressedData(handle, unit, 0), 0);
    EXPECT_EQ(VEUpdateCompressedData(handle, unit, -7), 0);
    EXPECT_TRUE(platform.takeJournal().empty());

    EXPECT_EQ(VEUpdateCompressedData(handle, unit, sizeof(unit)), 0);
    EXPECT_EQ(platform.takeJournal(),
              (Journal{"AMediaCodec_dequeueInputBuffer 2000", "AMediaCodec_getInputBuffer 3",
                       "AMediaCodec_queueInputBuffer 3 0 12 0 0"}));
    EXPECT_STREQ(reinterpret_cast<char*>(platform.inputBuffer.data()), unit);
    EXPECT_EQ(VEUpdateCompressedData(handle, unit, 1), 0);
    EXPECT_EQ(platform.takeJournal(),
              (Journal{"AMediaCodec_dequeueInputBuffer 2000", "AMediaCodec_getInputBuffer 3",
                       "AMediaCodec_queueInputBuffer 3 0 1 0 0"}));

    platform.inputIndex = -1;
    EXPECT_EQ(VEUpdateCompressedData(handle, unit, sizeof(unit)), 0);
    EXPECT_EQ(platform.takeJournal(), (Journal{"AMediaCodec_dequeueInputBuffer 2000"}));
    VEDestroyRenderer(handle);
}

TEST_F(DecodeCalls, TheDecoderThreadRendersFramesWithDataOnly) {
    void* handle = create();
    WaitUntil([this] { return platform.polls > 2; });
    EXPECT_EQ(platform.outputTimeout, 1000);
    EXPECT_EQ(platform.rendered + platform.returnedEmpty, 0);
    platform.outputIndex = 0;
    WaitUntil([this] { return platform.returnedEmpty > 0; });
    EXPECT_EQ(platform.rendered, 0);
    platform.outputSize = 8;
    WaitUntil([this] { return platform.rendered > 0; });
    VEDestroyRenderer(handle);
}

TEST_F(DecodeCalls, ADecoderCallThatOutlastsDestructionIsFollowedByDelete) {
    platform.blockOutput();
    void* handle = create();
    WaitUntil([this] { return platform.threadsInOutput() == 1; });
    platform.takeJournal();
    LogCapture::Take();
    VEDestroyRenderer(handle);
    EXPECT_EQ(platform.threadsInOutput(), 1);
    EXPECT_EQ(platform.takeJournal(), (Journal{"ANativeWindow_release", "AMediaCodec_stop",
                                               "DeleteGlobalRef", "DeleteGlobalRef"}));
    EXPECT_EQ(LogCapture::TakeTexts().at(2),
              "a decoder call takes longer than 50 ms: the decoder is deleted after it");
    const int polls = platform.polls;
    platform.unblockOutput();
    WaitUntil([this] { return LiveThreads() <= threadsBefore; });
    EXPECT_EQ(platform.takeJournal(), Journal{"AMediaCodec_delete"});
    EXPECT_EQ(platform.polls, polls + 1) << "the thread goes on";
}

TEST_F(DecodeCalls, DestructionWaitsForADecoderCallThatStopEnds) {
    platform.listener = [this](const std::string& call) {
        if (call == "AMediaCodec_stop") {
            EXPECT_EQ(platform.threadsInOutput(), 1);
            platform.unblockOutput();
        } else if (call == "AMediaCodec_delete") {
            EXPECT_EQ(platform.threadsInOutput(), 0);
        }
    };
    platform.blockOutput();
    void* handle = create();
    WaitUntil([this] { return platform.threadsInOutput() == 1; });
    platform.takeJournal();
    VEDestroyRenderer(handle);
    EXPECT_EQ(platform.takeJournal(), kDestroyed);
}

TEST_F(DecodeCalls, AFailingDecoderIsAskedAtMostOnceAMillisecond) {
    const auto expectPauses = [this] {
        const auto start = std::chrono::steady_clock::now();
        const int polls = platform.polls;
        void* handle = create();
        WaitUntil([&] { return platform.polls > polls + 50; });
        const std::chrono::duration<double, std::milli> milliseconds =
            std::chrono::steady_clock::now() - start;
        EXPECT_LE(platform.polls - polls, 2 * milliseconds.count());
        VEDestroyRenderer(handle);
    };
    platform.outputIndex = AMEDIA_ERROR_UNKNOWN;
    expectPauses();
    platform.outputIndex = 0;
    platform.releaseStatus = AMEDIA_ERROR_UNKNOWN;
    expectPauses();
}

TEST_F(DecodeCalls, AThousandLivesLeaveNoThreadAndTouchNothingFreed) {
    platform.outputIndex = 0;
    platform.outputSize = 1;
    char unit[16] = {};
    for (int life = 0; life < 1000; ++life) {
        const bool blocks = life % 100 == 0;
        if (blocks) {
            platform.blockOutput();
        }
        void* handle = create();
        VEUpdateCompressedData(handle, unit, sizeof(unit));
        if (life % 10 == 0) {
            VEUpdateRenderer(handle, nullptr, 0, true, nullptr);  // Builds the program: slow.
        }
        VEDestroyRenderer(handle);
        if (blocks) {
            platform.unblockOutput();
        }
        platform.takeJournal();
        LogCapture::Take();
    }
}

}  // namespace
