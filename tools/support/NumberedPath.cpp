#include "support/NumberedPath.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

#include "support/ToolError.h"

namespace {

/// What may stand between '%' and 'd': nothing, or a zero and a digit.
bool ParseWidth(const std::string& text, size_t& digits) {
    const bool padded = text.size() == 2 && text[0] == '0' && text[1] >= '1' && text[1] <= '9';
    digits = padded ? static_cast<size_t>(text[1] - '0') : 1;
    return padded || text.empty();
}

}  // namespace

bool NumberedPath::IsPattern(const std::string& path) {
    return path.find('%') != std::string::npos;
}

NumberedPath::NumberedPath(const std::string& pattern) {
    const size_t percent = pattern.find('%');
    const size_t letter = pattern.find('d', percent);
    if (percent == std::string::npos || letter == std::string::npos ||
        pattern.find('%', letter) != std::string::npos ||
        !ParseWidth(pattern.substr(percent + 1, letter - percent - 1), digits_)) {
        throw ToolError(pattern + ": not a numbered name like dir/%04d.png");
    }
    before_ = pattern.substr(0, percent);
    after_ = pattern.substr(letter + 1);
}

std::string NumberedPath::At(int number) const {
    const std::string digits = std::to_string(number);
    const size_t zeros = digits_ > digits.size() ? digits_ - digits.size() : 0;
    return before_ + std::string(zeros, '0') + digits + after_;
}

bool NumberedPath::Matches(const std::string& path) const {
    const size_t around = before_.size() + after_.size();
    if (path.size() <= around || path.compare(0, before_.size(), before_) != 0 ||
        path.compare(path.size() - after_.size(), after_.size(), after_) != 0) {
        return false;
    }
    const std::string number = path.substr(before_.size(), path.size() - around);
    return number.find_first_not_of("0123456789") == std::string::npos;
}

void CreateDirectoryOf(const std::string& path) {
    const std::filesystem::path directory = std::filesystem::path(path).parent_path();
    std::error_code error;
    if (!directory.empty() && !std::filesystem::create_directories(directory, error) && error) {
        throw ToolError(directory.string() + ": " + error.message());
    }
}
