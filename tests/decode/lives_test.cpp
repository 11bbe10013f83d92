// Renderers of compressed video that come and go, as applications change from clip to clip.

#include <GLES3/gl3.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "DecodeFixture.h"
#include "Life.h"

namespace {

/// Threads with the name of this program. Those of the JVM and of the driver have other names.
long LiveThreads() {
    const auto nameOf = [](const std::filesystem::path& thread) {
        std::string name;
        std::getline(std::ifstream(thread / "comm"), name);
        return name;
    };
    const std::string own = nameOf("/proc/self");
    long count = 0;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        count += nameOf(thread.path()) == own ? 1 : 0;
    }
    return count;
}

long MemoryInMegabytes() {
    constexpr long kPagesPerMegabyte = 256;
    long size = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident / kPagesPerMegabyte;
}

class Lives : public DecodeTest {
protected:
    Lives() { glGenTextures(1, &texture_); }

    void LiveOnce(bool toThePicture) { Live({Jvm(), texture_, false, toThePicture}, units_); }

    unsigned texture_ = 0;
    std::vector<TestUnit> units_ = [] {
        TestStream stream = ChangingStream();
        stream.width = 1280;
        stream.height = 720;
        return Encode(stream, 4);
    }();
};

TEST_F(Lives, LeaveNeitherThreadsNorMemory) {
    constexpr int kLives = LIVES * 2 / 5;
    // Less than one picture in RGBA, of which each life has several; more than a context keeps of
    // each renderer.
    constexpr long kMegabytesPerLife = 2;
    const long threads = LiveThreads();
    for (int life = 0; life < kLives / 2; ++life) {
        LiveOnce(life % 3 == 0);
    }
    const long memory = MemoryInMegabytes();
    for (int life = 0; life < kLives; ++life) {
        LiveOnce(life % 3 == 0);
    }
    EXPECT_LE(MemoryInMegabytes() - memory, kLives * kMegabytesPerLife);
    for (int i = 0; i < 5000 && LiveThreads() > threads; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_LE(LiveThreads(), threads);
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

}  // namespace
