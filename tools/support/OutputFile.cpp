#include "support/OutputFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "support/ToolError.h"

namespace {

std::string ErrnoText() {
    return std::generic_category().message(errno);
}

/// Gives a file another name, which no file has. \return 0, or an error number
int RenameToNew(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return errno;
    }
    // Some file systems cannot do both in one step.
    if (std::error_code ignored; std::filesystem::exists(to, ignored)) {
        return EEXIST;
    }
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

void RefuseExisting(const std::string& path) {
    throw ToolError(path + ": exists already; --overwrite replaces it");
}

PendingFile::PendingFile(std::string target, Existing existing)
    : target_(std::move(target)), existing_(existing) {
    Create();
}

void PendingFile::Create() {
    constexpr mode_t kReadWrite = 0666;
    int file = -1;
    for (int number = 0; file < 0; ++number) {
        path_ = target_ + "." + std::to_string(getpid()) +
                (number > 0 ? "-" + std::to_string(number) : "") + ".part";
        file = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kReadWrite);
        if (file < 0 && errno != EEXIST) {
            throw ToolError(target_ + ": cannot be written: " + ErrnoText());
        }
    }
    close(file);
}

PendingFile::~PendingFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

void PendingFile::Commit() {
    const bool replaces = existing_ == Existing::kReplaced;
    errno = 0;
    const int error = !replaces ? RenameToNew(path_, target_)
                      : std::rename(path_.c_str(), target_.c_str()) == 0 ? 0
                                                                         : errno;
    if (error == EEXIST) {
        RefuseExisting(target_);
    }
    if (error != 0) {
        throw ToolError(target_ + ": " + std::generic_category().message(error));
    }
}

OutputFile::OutputFile(const std::string& path, Existing existing)
    : path_(path), pending_(path, existing), file_(std::fopen(pending_.Path().c_str(), "wb")) {
    Check(file_ != nullptr);
}

void OutputFile::Check(bool good) const {
    if (!good) {
        throw ToolError(path_ + ": cannot be written: " + ErrnoText());
    }
}

void OutputFile::Write(const void* bytes, size_t count) {
    Check(std::fwrite(bytes, 1, count, file_.get()) == count);
}

void OutputFile::Close() {
    Check(std::fclose(file_.release()) == 0);
}

void OutputFile::Commit() {
    if (file_ != nullptr) {
        Close();
    }
    pending_.Commit();
}
