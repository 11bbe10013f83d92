#include "PngWriters.h"

#include "support/PngFile.h"

void PngWriter::Write(Image& frame, int64_t /*time*/) {
    const std::vector<uint8_t> bytes = EncodePng(path_, frame);
    file_.Write(bytes.data(), bytes.size());
    file_.Close();
}

void PngSequence::Write(Image& frame, int64_t time) {
    begin_ = number_ == 0 ? time : begin_;
    varies_ = varies_ || time - begin_ != number_ * clock_.frame;
    const std::string path = path_.At(++number_);
    if (number_ == 1) {
        CreateDirectoryOf(path);
    }
    WritePng(path, frame, existing_);
}

std::string PngSequence::Remark() const {
    return varies_ ? "the times of the frames vary, which numbered pictures do not keep" : "";
}
