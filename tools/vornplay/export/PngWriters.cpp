#include "PngWriters.h"

#include "support/PngFile.h"

void PngWriter::Write(const Image& frame, int64_t /*time*/) {
    WritePng(path_, frame);
}

void PngSequence::Write(const Image& frame, int64_t time) {
    varies_ = varies_ || time != number_ * clock_.frame;
    const std::string path = path_.At(++number_);
    if (number_ == 1) {
        CreateDirectoryOf(path);
    }
    WritePng(path, frame);
}

std::string PngSequence::Remark() const {
    return varies_ ? "the times of the frames vary, which numbered pictures do not keep" : "";
}
