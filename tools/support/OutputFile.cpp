#include "support/OutputFile.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "support/ToolError.h"

PendingFile::PendingFile(std::string target)
    : target_(std::move(target)), path_(target_ + ".part") {}

PendingFile::~PendingFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

void PendingFile::Commit() {
    std::error_code error;
    std::filesystem::rename(path_, target_, error);
    if (error) {
        throw ToolError(target_ + ": " + error.message());
    }
}

OutputFile::OutputFile(const std::string& path)
    : path_(path), pending_(path), file_(std::fopen(pending_.Path().c_str(), "wb")) {
    Check(file_ != nullptr);
}

void OutputFile::Check(bool good) const {
    if (!good) {
        throw ToolError(path_ + ": cannot be written: " + std::generic_category().message(errno));
    }
}

void OutputFile::Write(const void* bytes, size_t count) {
    Check(std::fwrite(bytes, 1, count, file_.get()) == count);
}

void OutputFile::Commit() {
    Check(std::fclose(file_.release()) == 0);
    pending_.Commit();
}
