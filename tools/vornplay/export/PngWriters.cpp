#include "PngWriters.h"

#include "support/PngFile.h"

void PngWriter::Write(const Image& frame) {
    WritePng(path_, frame);
}

void PngSequence::Write(const Image& frame) {
    const std::string path = path_.At(++number_);
    if (number_ == 1) {
        CreateDirectoryOf(path);
    }
    WritePng(path, frame);
}
