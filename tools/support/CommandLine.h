#pragma once

#include <CLI/CLI.hpp>
#include <iomanip>
#include <sstream>
#include <string>

#include "support/Image.h"

/// Help that shows the names of the options and the forms of their values, not their rules.
class PlainHelp : public CLI::Formatter {
public:
    PlainHelp() { column_width(30); }
    std::string make_option_opts(const CLI::Option* option) const override;
};

/// Parses the arguments into what \p app is bound to.
/// \return false when the user asked for help, which was printed.
/// \throws ToolError on bad arguments
bool ParseCommandLine(CLI::App& app, int argc, char** argv);

/// "640x480". \throws ToolError
Size ParseSize(const std::string& text);

/// Accepts numbers in a range.
template <typename Number>
CLI::Validator InRange(Number low, Number high) {
    const auto check = [low, high](const std::string& text) {
        Number number{};
        if (CLI::detail::lexical_cast(text, number) && number >= low && number <= high) {
            return std::string();
        }
        std::ostringstream message;
        message << std::setprecision(12) << text << " is no number from " << low << " to " << high;
        return message.str();
    };
    return CLI::Validator(check, "");
}
