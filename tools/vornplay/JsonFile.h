#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>

/// A JSON file that knows the line of each of its values.
class JsonFile {
public:
    using Pointer = nlohmann::json::json_pointer;

    /// \throws ToolError that names the line
    explicit JsonFile(std::string path);

    const std::string& Path() const { return path_; }
    const nlohmann::json& Root() const { return root_; }

    /// \throws ToolError \p what, with the file and the line of a value in front
    [[noreturn]] void Fail(const Pointer& where, const std::string& what) const;

private:
    std::string path_;
    nlohmann::json root_;
    std::map<std::string, int> lines_;  ///< By the pointer to the value.
};
