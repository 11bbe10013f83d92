#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/Image.h"

/// The options and arguments of a program, bound to variables. Names are as users type them:
/// "--out", "--quiet,-q", or "INPUT" for an argument.
class CommandLine {
public:
    /// \throws ToolError that says what is wrong with a value
    using Take = std::function<void(const std::string& value)>;

    /// \param about the first line of the help
    CommandLine(const std::string& about, const std::string& program);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// The help shows the options that are added from here on under this heading.
    void Group(const std::string& heading) { group_ = heading; }
    /// The help ends with these. \param text lines that begin with a space stay as they are
    void Note(const std::string& title, const std::string& text);

    void Flag(const std::string& name, bool& value, const std::string& help);
    void Flag(const std::string& name, const std::function<void()>& given, const std::string& help);

    /// \param form what the help shows for the value, such as "WxH"
    void Option(const std::string& name, const Take& take, const std::string& form,
                const std::string& help);
    void Option(const std::string& name, std::string& value, const std::string& form,
                const std::string& help);
    /// \param parse makes a value of a text
    template <typename Value, typename Parse>
    void Option(const std::string& name, Value& value, Parse parse, const std::string& form,
                const std::string& help) {
        const Take take = [&value, parse](const std::string& text) {
            value = static_cast<Value>(parse(text));
        };
        Option(name, take, form, help);
    }
    /// An option that takes one of some words. \param form the words if empty
    void Choice(const std::string& name, const Take& take, const std::vector<std::string>& words,
                const std::string& help, const std::string& form = "");
    /// An option or argument that may be given often.
    void Repeated(const std::string& name, const Take& take, const std::string& form,
                  const std::string& help);

    /// What --version prints; nothing else is done then.
    void Version(const std::function<std::string()>& text) { version_ = text; }

    void Require(const std::string& name);
    void Need(const std::string& name, const std::string& other);
    void Exclude(const std::string& name, const std::string& other);

    /// Sets the variables. Adds --help and --generate, which prints the man page or a completion
    /// script.
    /// \return false if the user asked for one of these, or for --version, which was printed
    /// \throws ToolError on bad arguments
    bool Parse(int argc, char** argv);

    /// The options and arguments that were given, in the order of the help, with their values.
    std::vector<std::pair<std::string, std::vector<std::string>>> Given() const;

private:
    struct Parser;

    void AddOwn();

    std::unique_ptr<Parser> parser_;
    std::string group_ = "Options";
    std::function<std::string()> version_;
};

// Parsers of values. All throw ToolError.

/// "640x480"
Size ParseSize(const std::string& text);
/// A parser of numbers in a range.
std::function<double(const std::string&)> NumberIn(double low, double high);
std::function<int64_t(const std::string&)> WholeIn(int64_t low, int64_t high);
