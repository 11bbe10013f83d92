#include "OutputGuard.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <optional>
#include <system_error>

#include "support/NumberedPath.h"
#include "support/OutputFile.h"
#include "support/ToolError.h"

namespace {

namespace fs = std::filesystem;

/// Without links in the directory, which need not exist.
std::string Normal(std::string path) {
    constexpr std::string_view kProtocol = "file:";
    if (path.rfind(kProtocol, 0) == 0) {
        path.erase(0, kProtocol.size());
    }
    const fs::path absolute = fs::absolute(path);
    std::error_code error;
    const fs::path directory = fs::weakly_canonical(absolute.parent_path(), error);
    return ((error ? absolute.parent_path() : directory) / absolute.filename()).string();
}

std::optional<NumberedPath> PatternOf(const std::string& path) {
    try {
        return NumberedPath(path);
    } catch (const ToolError&) {
        return std::nullopt;
    }
}

/// Whether one of the names may be one of the other's.
bool MayMeet(const std::string& one, const std::string& other) {
    const auto first = PatternOf(one);
    const auto second = PatternOf(other);
    if (first.has_value() && second.has_value()) {
        return first->Matches(second->At(1));
    }
    return (first.has_value() && first->Matches(other)) ||
           (second.has_value() && second->Matches(one)) || one == other;
}

bool IsYes(const std::string& answer) {
    return answer == "y" || answer == "Y" || answer == "yes";
}

bool UserAgrees(const Options& options) {
    if (options.quiet || options.json || isatty(STDIN_FILENO) == 0 || isatty(STDERR_FILENO) == 0) {
        return false;
    }
    std::cerr << "vornplay: " << options.out << " exists already. Replace it? [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return IsYes(answer);
}

}  // namespace

void CheckIsNoInput(const std::string& out, const std::string& path, const char* role) {
    if (out.empty() || path.empty() || out == "-") {
        return;
    }
    const std::string output = Normal(out);
    const std::string input = Normal(path);
    std::error_code ignored;
    if (fs::equivalent(output, input, ignored) || MayMeet(output, input)) {
        throw ToolError(out + ": is the " + role + "; name another output");
    }
}

void CheckReplaces(Options& options) {
    if (options.out == "-") {
        return;
    }
    const auto pattern = PatternOf(options.out);
    const std::string first = pattern.has_value() ? pattern->At(1) : options.out;
    std::error_code ignored;
    const bool exists = !options.out.empty() && fs::exists(fs::symlink_status(first, ignored));
    if (exists && fs::is_directory(first, ignored)) {
        throw ToolError(first + ": is a directory");
    }
    if (!exists || options.overwrite) {
        return;
    }
    options.overwrite = UserAgrees(options);
    if (!options.overwrite) {
        RefuseExisting(first);
    }
}
