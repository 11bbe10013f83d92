#include "support/PendingFile.h"

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
