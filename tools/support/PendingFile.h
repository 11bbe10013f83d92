#pragma once

#include <string>

/// A file that is written under another name beside its own, and takes its own once it is whole.
class PendingFile {
public:
    explicit PendingFile(std::string target);
    /// Removes what was written, unless it was committed.
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    /// Where to write.
    const std::string& Path() const { return path_; }

    /// \throws ToolError
    void Commit();

private:
    std::string target_;
    std::string path_;
};
