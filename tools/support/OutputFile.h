#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

/// What becomes of a file that has the name already.
enum class Existing { kReplaced, kKept };

/// A file that others write as "<name>.<process>.part". It gets its name once it is whole.
class PendingFile {
public:
    /// Creates it, empty, under a name that no other program uses. \throws ToolError
    explicit PendingFile(std::string target, Existing existing = Existing::kReplaced);
    /// Removes what was written, unless it was committed.
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    /// Where to write.
    const std::string& Path() const { return path_; }

    /// \throws ToolError
    void Commit();

private:
    void Create();

    std::string target_;
    std::string path_;
    Existing existing_;
};

/// A file that is written from memory. It gets its name once it is whole; a failure leaves no file.
class OutputFile {
public:
    /// Opens it for writing. \throws ToolError
    explicit OutputFile(const std::string& path, Existing existing = Existing::kReplaced);

    /// \throws ToolError
    void Write(const void* bytes, size_t count);
    /// Completes the file, still without its name. \throws ToolError
    void Close();
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

/// \throws ToolError that \p path exists, and what to do
[[noreturn]] void RefuseExisting(const std::string& path);
