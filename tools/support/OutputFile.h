#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

/// A file that others write as "<name>.part". It gets its name once it is whole.
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

/// A file that is written from memory. It gets its name once it is whole; a failure leaves no file.
class OutputFile {
public:
    /// Opens it for writing. \throws ToolError
    explicit OutputFile(const std::string& path);

    /// \throws ToolError
    void Write(const void* bytes, size_t count);
    /// \throws ToolError
    void Commit();

private:
    struct CloseFile {
        void operator()(std::FILE* file) const { (void)std::fclose(file); }
    };

    void Check(bool good) const;

    std::string path_;
    PendingFile pending_;
    std::unique_ptr<std::FILE, CloseFile> file_;
};
