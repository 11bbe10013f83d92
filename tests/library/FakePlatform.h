#pragma once

#include <jni.h>
#include <media/NdkMediaError.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <vector>

/// A JVM and an NDK for tests. The journal holds all calls in order, except those of the decoder
/// thread.
class FakePlatform {
public:
    /// The one and only; never destroyed, since decoder threads may be the last to use it.
    static FakePlatform& Get();

    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    JavaVM* jvm() { return &jvm_; }

    void note(const std::string& call);
    std::vector<std::string> takeJournal();
    /// Whether \p step is to fail, as named in failing: by its call as the journal has it.
    bool fails(const std::string& step) const { return failing.count(step) != 0; }

    std::set<std::string> failing;
    /// Hears of each call in the journal before it is done.
    std::function<void(const std::string& call)> listener;

    bool exception = false;      ///< A Java exception is pending.
    int callsWithException = 0;  ///< Calls to Java while one was.
    /// References, windows, formats and decoders that were not given back yet.
    std::atomic<int> alive{0};

    // What the decoder answers.
    std::atomic<int> pictureSide{64};
    std::atomic<long> inputIndex{3};
    std::atomic<long> outputIndex{-1};
    std::atomic<int> outputSize{0};
    std::atomic<media_status_t> releaseStatus{AMEDIA_OK};
    std::vector<unsigned char> inputBuffer = std::vector<unsigned char>(64);
    size_t inputCapacity = 1;  ///< Less than it has: VERenderer.h does not compare it with a unit.

    // What the decoder thread does.
    std::atomic<int64_t> timestamp{0};
    std::atomic<long> outputTimeout{0};
    std::atomic<int> polls{0};
    std::atomic<int> rendered{0};
    std::atomic<int> returnedEmpty{0};

    /// Holds the decoder thread inside its wait for output, as a slow decoder would.
    void blockOutput();
    void unblockOutput();
    void passOutput();
    int threadsInOutput();

private:
    FakePlatform();

    JNIEnv env_;
    JavaVM jvm_;
    std::mutex mutex_;
    std::condition_variable unblocked_;
    std::vector<std::string> journal_;
    bool blocked_ = false;
    int waiting_ = 0;
};
