#include "FrameSink.h"

#include <filesystem>
#include <utility>

#include "Mp4Writer.h"
#include "support/NumberedPath.h"
#include "support/PngFile.h"
#include "support/ToolError.h"

namespace {

class SinglePng : public FrameSink {
public:
    explicit SinglePng(std::string path) : path_(std::move(path)) {}

    void Write(const Image& frame) override { WritePng(path_, frame); }
    int64_t Limit() const override { return 1; }

private:
    std::string path_;
};

class PngSequence : public FrameSink {
public:
    explicit PngSequence(const std::string& pattern) : path_(pattern) {}

    void Write(const Image& frame) override {
        const std::string path = path_.At(++number_);
        if (number_ == 1) {
            CreateDirectoryOf(path);
        }
        WritePng(path, frame);
    }

private:
    NumberedPath path_;
    int number_ = 0;
};

}  // namespace

std::unique_ptr<FrameSink> MakeFrameSink(const Options& options, Size size, AVRational frameRate) {
    const std::string extension = std::filesystem::path(options.out).extension();
    if (options.out.empty()) {
        return nullptr;
    }
    if (extension == ".mp4") {
        return std::make_unique<Mp4Writer>(options.out, size, frameRate, options.backdrop);
    }
    if (extension != ".png") {
        throw ToolError(options.out + ": the output ends neither in .png nor in .mp4");
    }
    if (NumberedPath::IsPattern(options.out)) {
        return std::make_unique<PngSequence>(options.out);
    }
    return std::make_unique<SinglePng>(options.out);
}
