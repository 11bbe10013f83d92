#pragma once

#include <string>

/// A file name with a number in it, such as "dir/%04d.png".
class NumberedPath {
public:
    /// True for every name with a '%'.
    static bool IsPattern(const std::string& path);

    /// \throws ToolError unless \p pattern has one place for a number and no other '%'
    explicit NumberedPath(const std::string& pattern);

    std::string At(int number) const;

    /// Whether a path is this name with some number.
    bool Matches(const std::string& path) const;

private:
    std::string before_;
    std::string after_;
    size_t digits_ = 0;
};

/// Makes the directory that \p path names a file in, unless it exists. \throws ToolError
void CreateDirectoryOf(const std::string& path);
