// Exports that do not get to their end, and what is told of a run.

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>

#include "Clip.h"
#include "PlayerFixture.h"
#include "export/OutputKinds.h"
#include "support/NumberedPath.h"

namespace {

using nlohmann::json;

class StopTest : public PlayerTest {
protected:
    /// Pictures that compress badly.
    void WriteNoise(int count, Size size) const {
        for (int i = 1; i <= count; ++i) {
            WriteImage("in/" + std::to_string(i) + ".png", Noise(size, static_cast<uint32_t>(i)));
        }
    }

    json ReadJson(const std::string& name) const {
        std::ifstream file(Path(name));
        return json::parse(file);
    }

    /// Runs the player on a terminal, and types \p keys once \p sign is on the screen.
    RunResult PlayOnTerminal(const std::string& arguments, const std::string& sign,
                             const std::string& keys = "\x03") const {
        const std::string command = "cd " + Path("") + " && exec " VORNPLAY " " + arguments;
        winsize window = {24, 100, 0, 0};
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, &window);
        if (child == 0) {
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        RunResult result;
        std::array<char, 512> bytes{};
        bool typed = false;
        for (ssize_t count = 0; (count = read(terminal, bytes.data(), bytes.size())) > 0;) {
            result.errors.append(bytes.data(), static_cast<size_t>(count));
            if (!typed && result.errors.find(sign) != std::string::npos) {
                typed = write(terminal, keys.data(), keys.size()) > 0;
            }
        }
        int status = 0;
        waitpid(child, &status, 0);
        close(terminal);
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return result;
    }
};

}  // namespace

TEST_F(StopTest, CtrlCFinishesTheFileAndSaysWhere) {
    WriteNoise(150, {192, 144});
    PlayWell("in/%d.png --out in.mp4");
    for (const std::string input : {"in/%d.png", "in.mp4 --path decode"}) {
        for (const std::string out : {"out.mp4", "out.webm", "out.webp"}) {
            const RunResult result =
                PlayOnTerminal(input + " --overwrite --json --out " + out, " left");
            const std::string& text = result.errors;
            EXPECT_EQ(result.status, 130) << text;
            std::smatch bar;
            ASSERT_TRUE(std::regex_search(text, bar,
                                          std::regex("\\[[#.]{24}\\] +\\d+ %  "
                                                     "(\\d+) of 150 frames, \\d+ fps, "
                                                     "\\d+:\\d\\d left")))
                << text;
            std::smatch stop;
            ASSERT_TRUE(std::regex_search(
                text, stop,
                std::regex("stopped after (\\d+) of 150 frames, at ([0-9.]+) s; (.*) "
                           "holds them")))
                << text;
            EXPECT_EQ(stop[3], out);
            const int frames = std::stoi(stop[1]);
            EXPECT_GE(frames, std::stoi(bar[1]));
            EXPECT_LT(frames, 150);
            EXPECT_NEAR(std::stod(stop[2]), frames / 25.0, 0.006);
            EXPECT_NE(text.find("\"status\":\"stopped\",\"exit_status\":130"), std::string::npos);
            EXPECT_EQ(ReadFrames(Path(out)).size(), static_cast<size_t>(frames));
            for (const std::string& file : Files()) {
                EXPECT_EQ(file.find(".part"), std::string::npos) << file;
            }
        }
    }
}

TEST_F(StopTest, FullDiskIsOneLineAndLeavesNoBrokenFile) {
    WriteNoise(25, {96, 64});
    std::set<std::string> before = Files();
    for (const OutputKind& kind : OutputKinds()) {
        const std::string out = kind.example;
        // Files of at most 16 blocks, which are half a KiB each.
        const RunResult result = Run("ulimit -f 16; " VORNPLAY,
                                     "in/%d.png --quiet --json --out " + out + " > failed.json");
        EXPECT_EQ(result.status, 2) << out;
        const bool numbered = kind.frames == OutputFrames::kNumbered;
        const std::string name = numbered ? NumberedPath(out).At(1) : out;
        const std::string error = name + ": cannot be written: File too large";
        EXPECT_EQ(result.errors, "vornplay: " + error + "\n");
        EXPECT_EQ(ReadJson("failed.json")["status"], "failed");
        EXPECT_EQ(ReadJson("failed.json")["error"], error);
        std::filesystem::remove(Path("failed.json"));
        std::filesystem::remove(Path("dir"));
        EXPECT_EQ(Files(), before) << out;
    }
}

TEST_F(StopTest, WhatStoodThereStandsUnlessItMayBeReplaced) {
    WriteNoise(2, {16, 16});
    for (const std::string out : {"out.png", "out.mp4", "out.webp", "out.gif"}) {
        const auto reads = [&] {
            std::ifstream file(Path(out));
            return std::string(std::istreambuf_iterator<char>(file), {});
        };
        std::ofstream(Path(out)) << "earlier";
        const std::string play = "in/%d.png --quiet --out " + out;
        RunResult result = Play(play);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.errors,
                  "vornplay: " + out + ": exists already; --overwrite replaces it\n");
        for (const std::string sink : {" > /dev/full", " | true; exit ${PIPESTATUS[0]}"}) {
            result =
                Run("bash -c 'sleep 0.2; " VORNPLAY, play + " --overwrite --json" + sink + "'");
            EXPECT_EQ(result.status, 2) << sink;
            EXPECT_EQ(result.errors.rfind("vornplay: stdout: cannot be written: ", 0), 0U)
                << result.errors;
        }
        EXPECT_EQ(reads(), "earlier") << out;
        PlayWell(play);
        EXPECT_NE(reads(), "earlier") << out;
    }
    EXPECT_EQ(Files().size(), 7U) << "no unfinished file stays";
    for (const auto& [answer, status] : std::map<std::string, int>{{"n\n", 2}, {"y\n", 0}}) {
        std::ofstream(Path("out.gif")) << "earlier";
        EXPECT_EQ(PlayOnTerminal("in/%d.png --out out.gif", "Replace it? [y/N] ", answer).status,
                  status);
        EXPECT_EQ(std::filesystem::file_size(Path("out.gif")) == 7, status == 2);
    }
}

TEST_F(StopTest, JsonTellsWhatBecameOfTheRun) {
    ClipKind kind;
    kind.audio = {"libopus", "aac"};
    MakeClip(Path("in.mkv"), kind);
    PlayWell("in.mkv --frames 7 --json --out out.webm > run.json");
    json run = ReadJson("run.json");
    for (const char* figure : {"elapsed_seconds", "ms_per_draw"}) {
        EXPECT_GT(run[figure].get<double>(), 0.0);
        run.erase(figure);
    }
    EXPECT_EQ(run, json::parse(R"({
        "status": "done", "exit_status": 0, "inputs": ["in.mkv"], "output": "out.webm",
        "path": "decode", "width": 64, "height": 48, "frame_rate": "25/1",
        "frames_expected": 7, "frames_drawn": 7, "frames_shown": 7, "frames_dropped": 0,
        "times_repaired": 0, "frames_lost": 0, "frames_damaged": 0, "seconds": 0.28,
        "audio_copied": ["opus"], "audio_encoded": [],
        "audio_left_out": ["aac"] })"));
}
