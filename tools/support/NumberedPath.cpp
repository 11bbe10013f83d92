#include "support/NumberedPath.h"

#include <cstddef>
#include <filesystem>
#include <regex>
#include <system_error>

#include "support/ToolError.h"

bool NumberedPath::IsPattern(const std::string& path) {
    return path.find('%') != std::string::npos;
}

NumberedPath::NumberedPath(const std::string& pattern) {
    static const std::regex kNumbered("([^%]*)%(0([1-9]))?d([^%]*)");
    std::smatch parts;
    if (!std::regex_match(pattern, parts, kNumbered)) {
        throw ToolError(pattern + ": not a numbered name like dir/%04d.png");
    }
    before_ = parts[1];
    after_ = parts[4];
    digits_ = parts[3].matched ? static_cast<size_t>(std::stoi(parts[3])) : 1;
}

std::string NumberedPath::At(int number) const {
    const std::string digits = std::to_string(number);
    const size_t zeros = digits_ > digits.size() ? digits_ - digits.size() : 0;
    return before_ + std::string(zeros, '0') + digits + after_;
}

void CreateDirectoryOf(const std::string& path) {
    const std::filesystem::path directory = std::filesystem::path(path).parent_path();
    std::error_code error;
    if (!directory.empty() && !std::filesystem::create_directories(directory, error) && error) {
        throw ToolError(directory.string() + ": " + error.message());
    }
}
