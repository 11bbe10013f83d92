#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

#include "support/PendingFile.h"

/// A file that is written from memory. It takes its name once it is whole; after a failure there is
/// none.
class OutputFile {
public:
    /// Makes sure that it can be written. \throws ToolError
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
