#include "FrameSink.h"

#include <filesystem>

#include "export/GifWriter.h"
#include "export/PngWriters.h"
#include "export/VideoWriter.h"
#include "export/WebpWriter.h"
#include "support/ToolError.h"

std::unique_ptr<FrameSink> MakeFrameSink(const Options& options, Size size,
                                         const VideoFile& input) {
    const std::string& out = options.out;
    const std::string extension = std::filesystem::path(out).extension();
    if (out.empty()) {
        return nullptr;
    }
    if (const VideoFormat* format = FindVideoFormat(extension)) {
        return std::make_unique<VideoWriter>(*format, options, size, input);
    }
    if (extension == ".gif") {
        return std::make_unique<GifWriter>(out, size, input.FrameRate());
    }
    if (extension == ".webp") {
        return std::make_unique<WebpWriter>(out, input.FrameRate());
    }
    if (extension != ".png") {
        throw ToolError(out + ": the output ends in none of .png, .mp4, .mkv, .webm, .webp, .gif");
    }
    if (NumberedPath::IsPattern(out)) {
        return std::make_unique<PngSequence>(out);
    }
    return std::make_unique<PngWriter>(out);
}
