#include "PlayerFixture.h"

#include <sys/wait.h>

extern "C" {
#include <libavutil/log.h>
}

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "support/NumberedPath.h"
#include "support/PngFile.h"

Rgba FrameColor(int frame) {
    return {static_cast<uint8_t>(40 + 50 * (frame % 5)), static_cast<uint8_t>(20 * frame),
            static_cast<uint8_t>(250 - 20 * frame), 255};
}

PlayerTest::PlayerTest() {
    av_log_set_level(AV_LOG_ERROR);
    std::string name = (std::filesystem::temp_directory_path() / "player.XXXXXX").string();
    directory_ = mkdtemp(name.data());
}

PlayerTest::~PlayerTest() {
    std::filesystem::remove_all(directory_);
}

RunResult PlayerTest::Run(const std::string& tool, const std::string& arguments) const {
    const std::string log = directory_.string() + ".log";
    const std::string command =
        "cd " + directory_.string() + " && " + tool + " " + arguments + " 2>" + log;
    // NOLINTNEXTLINE(cert-env33-c): the shell is what users start it from.
    const int status = std::system(command.c_str());
    std::ifstream file(log);
    RunResult result{WIFEXITED(status) ? WEXITSTATUS(status) : -1,
                     {std::istreambuf_iterator<char>(file), {}}};
    std::filesystem::remove(log);
    return result;
}

RunResult PlayerTest::Play(const std::string& arguments) const {
    return Run(VORNPLAY, arguments);
}

void PlayerTest::PlayWell(const std::string& arguments) const {
    const RunResult result = Play("--quiet --overwrite " + arguments);
    ASSERT_EQ(result.status, 0) << arguments << "\n" << result.errors;
    ASSERT_EQ(result.errors, "") << arguments;
}

Image PlayerTest::Read(const std::string& name) const {
    return ReadPng(Path(name));
}

void PlayerTest::WriteImage(const std::string& name, const Image& image) const {
    CreateDirectoryOf(Path(name));
    WritePng(Path(name), image);
}

void PlayerTest::WriteClip(const std::string& name, int count, Size size) const {
    const NumberedPath path(name + "/%04d.png");
    for (int i = 1; i <= count; ++i) {
        WriteImage(path.At(i), Solid(size, FrameColor(i)));
    }
}

std::set<std::string> PlayerTest::Files() const {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory_)) {
        files.insert(std::filesystem::relative(entry.path(), directory_).string());
    }
    return files;
}

void PlayerTest::LinkAwkwardClips() const {
    for (const auto& clip : std::filesystem::directory_iterator(AWKWARD_CLIPS)) {
        std::filesystem::create_symlink(clip.path(), directory_ / clip.path().filename());
    }
}
