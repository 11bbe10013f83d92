#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/time.h>
#include <unistd.h>

#include <string>
#include <thread>

#include "render/GpuTimerQueries.h"
#include "render/ThreadAffinity.h"
#include "render/Timer.h"
#include "render/VELog.h"
#include "support/LogCapture.h"

namespace {

std::string TagOf(const std::string& path) {
    LogWithFileTag(4, path.c_str(), "x");
    return LogCapture::Take().at(0).tag;
}

TEST(EngineServices, LogTagIsTheBaseNameUpToItsFirstDot) {
    EXPECT_EQ("VELog", TagOf("src/common/VELog.cpp"));
    EXPECT_EQ("name", TagOf("name.tar.gz"));
    EXPECT_EQ("c", TagOf("a/b/c"));
    EXPECT_EQ("c", TagOf("a.b/c.d"));
    EXPECT_EQ("dir\\file", TagOf("include/dir\\file.h"));
    EXPECT_EQ("", TagOf("a/"));
    EXPECT_EQ("", TagOf(""));
    EXPECT_EQ("", TagOf("a/.hidden"));
    EXPECT_EQ(std::string(127, 't'), TagOf("dir/" + std::string(127, 't')));
    EXPECT_EQ(std::string(127, 't'), TagOf("dir/" + std::string(200, 't')));
}

TEST(EngineServices, LogLinesFrom512CharactersOnAreFormattedHere) {
    for (const size_t length : {0U, 511U, 512U, 100000U}) {
        const std::string text(length, 'm');
        LogWithFileTag(6, "a.cpp", "%s", text.c_str());
        const auto lines = LogCapture::Take();
        ASSERT_EQ(1U, lines.size());
        EXPECT_EQ(text, lines[0].text);
        EXPECT_EQ(6, lines[0].priority);
        EXPECT_EQ(length >= 512, lines[0].formattedByCaller) << length;
    }
}

TEST(EngineServices, LogWithTagPassesEverythingOn) {
    EXPECT_EQ(1, LogWithTag(5, "some.tag/x", "%d %s", 7, std::string(600, 'y').c_str()));
    const auto lines = LogCapture::Take();
    EXPECT_EQ("some.tag/x", lines.at(0).tag);
    EXPECT_EQ("7 " + std::string(600, 'y'), lines[0].text);
    EXPECT_FALSE(lines[0].formattedByCaller);
}

TEST(EngineServices, TimerRunsUntilStopped) {
    Timer timer;
    timer.start();
    usleep(2000);
    const double running = timer.getElapsedTimeInMicroSec();
    EXPECT_GE(running, 2000.0);
    usleep(1000);
    EXPECT_GT(timer.getElapsedTimeInMicroSec(), running);
    timer.stop();
    const double stopped = timer.getElapsedTimeInMicroSec();
    usleep(1000);
    EXPECT_EQ(stopped, timer.getElapsedTimeInMicroSec());
    EXPECT_DOUBLE_EQ(stopped * 0.001, timer.getElapsedTimeInMilliSec());
    EXPECT_DOUBLE_EQ(stopped * 1e-6, timer.getElapsedTimeInSec());
    EXPECT_DOUBLE_EQ(stopped * 1e-6, timer.getElapsedTime());
    timer.start();
    EXPECT_LT(timer.getElapsedTimeInMicroSec(), stopped + 1e6);
}

TEST(EngineServices, TimerMillisecondsAreTheLow32BitsOfTheClock) {
    timeval before = {};
    gettimeofday(&before, nullptr);
    const auto now = static_cast<uint32_t>(Timer::getTimeNowInMilliSec());
    const uint64_t milliseconds =
        static_cast<uint64_t>(before.tv_sec) * 1000 + static_cast<uint64_t>(before.tv_usec) / 1000;
    EXPECT_LT(now - static_cast<uint32_t>(milliseconds), 60000U);
}

TEST(EngineServices, AffinityPinsAndReportsAThread) {
    EXPECT_EQ(0, GetThreadAffinityMask(0)) << "0 is not the calling thread";
    EXPECT_EQ(0, GetThreadAffinityMask(0x7FFFFFFF)) << "no such thread";
    std::thread([] {
        const int all = GetThreadAffinityMask(gettid());
        ASSERT_NE(0, all);
        const int lowest = all & -all;
        EXPECT_EQ(0, SetThreadAffinityMask(gettid(), lowest));
        EXPECT_EQ(lowest, GetThreadAffinityMask(gettid()));
        EXPECT_EQ(lowest, 1 << sched_getcpu());
    }).join();
}

TEST(EngineServicesDeathTest, AffinityFailureIsLoggedAndFatal) {
    EXPECT_EXIT(
        {
            // The sink keeps the line: abort is caught to look at it.
            (void)signal(SIGABRT, [](int) {
                const auto lines = LogCapture::Take();
                _exit(lines.size() == 1 && lines[0].tag == "VELog" && lines[0].priority == 6 &&
                              lines[0].text == "Error in the syscall setaffinity: mask=0x0 err=0x16"
                          ? 42
                          : 1);
            });
            SetThreadAffinityMask(gettid(), 0);
        },
        testing::ExitedWithCode(42), "");
}

TEST(EngineServices, GpuTimerQueriesChoiceIsLogged) {
    SetAllowGpuTimerQueries(3);
    const auto lines = LogCapture::Take();
    EXPECT_EQ("SetAllowGpuTimerQueries( 3 )", lines.at(0).text);
    EXPECT_EQ("VELog", lines[0].tag);
    EXPECT_EQ(4, lines[0].priority);
}

}  // namespace
