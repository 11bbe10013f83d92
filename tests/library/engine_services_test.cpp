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
    EXPECT_EQ(TagOf("name.tar.gz"), "name");
    EXPECT_EQ(TagOf("a.b/c.d"), "c");
    EXPECT_EQ(TagOf("include/dir\\file.h"), "dir\\file");
    EXPECT_EQ(TagOf(""), "");
    EXPECT_EQ(TagOf("a/.hidden"), "");
    EXPECT_EQ(TagOf("dir/" + std::string(127, 't')), std::string(127, 't'));
    EXPECT_EQ(TagOf("dir/" + std::string(200, 't')), std::string(127, 't'));
}

TEST(EngineServices, LogLinesFrom512CharactersOnAreFormattedHere) {
    for (const size_t length : {0U, 511U, 512U, 100000U}) {
        const std::string text(length, 'm');
        LogWithFileTag(6, "a.cpp", "%s", text.c_str());
        const auto lines = LogCapture::Take();
        ASSERT_EQ(lines, (LogCapture::Lines{{6, "a", text}}));
        EXPECT_EQ(lines[0].formattedByCaller, length >= 512) << length;
    }
}

TEST(EngineServices, TimerRunsUntilStopped) {
    Timer timer;
    EXPECT_GT(timer.getElapsedTimeInSec(), 1e9) << "since 1970";
    timer.start();
    timeval now = {};
    gettimeofday(&now, nullptr);
    const auto toTheNextSecond = static_cast<useconds_t>(1'000'000 - now.tv_usec);
    usleep(toTheNextSecond);
    EXPECT_GE(timer.getElapsedTimeInMicroSec(), toTheNextSecond);
    timer.stop();
    const double stopped = timer.getElapsedTimeInMicroSec();
    usleep(1000);
    EXPECT_EQ(timer.getElapsedTimeInMicroSec(), stopped);
    EXPECT_DOUBLE_EQ(timer.getElapsedTimeInMilliSec(), stopped * 0.001);
    EXPECT_DOUBLE_EQ(timer.getElapsedTime(), stopped * 1e-6);
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
    EXPECT_EQ(GetThreadAffinityMask(0), 0) << "0 is not the calling thread";
    EXPECT_EQ(GetThreadAffinityMask(0x7FFFFFFF), 0) << "no such thread";
    std::thread([] {
        const int all = GetThreadAffinityMask(gettid());
        ASSERT_NE(all, 0);
        const int lowest = all & -all;
        EXPECT_EQ(SetThreadAffinityMask(gettid(), lowest), 0);
        EXPECT_EQ(GetThreadAffinityMask(gettid()), lowest);
        EXPECT_EQ(lowest, 1 << sched_getcpu());
        EXPECT_EQ(SetThreadAffinityMask(0, all), 0) << "here 0 is the calling thread";
        EXPECT_EQ(GetThreadAffinityMask(gettid()), all);
    }).join();
}

TEST(EngineServicesDeathTest, AffinityFailureIsLoggedAndFatal) {
    EXPECT_EXIT(
        {
            // The sink keeps the line: abort is caught to look at it.
            (void)signal(SIGABRT, [](int) {
                const LogCapture::Line expected = {
                    6, "VELog", "Error in the syscall setaffinity: mask=0x0 err=0x16"};
                _exit(LogCapture::Take() == LogCapture::Lines{expected} ? 42 : 1);
            });
            SetThreadAffinityMask(gettid(), 0);
        },
        testing::ExitedWithCode(42), "");
}

TEST(EngineServices, GpuTimerQueriesChoiceIsLogged) {
    SetAllowGpuTimerQueries(3);
    EXPECT_EQ(LogCapture::Take().at(0),
              (LogCapture::Line{4, "VELog", "SetAllowGpuTimerQueries( 3 )"}));
}

}  // namespace
