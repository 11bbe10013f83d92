#include "support/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iomanip>
#include <numeric>
#include <sstream>
#include <string_view>
#include <utility>

#include "support/ToolError.h"

namespace {

/// Shows the names of the options and the forms of their values, not their rules.
class PlainHelp : public CLI::Formatter {
public:
    PlainHelp() { column_width(30); }
    std::string make_option_opts(const CLI::Option* option) const override {
        const std::string form = option->get_type_name();
        return form.empty() ? form : " " + form;
    }
};

/// Errors begin with the option's name.
void TakeFor(const std::string& name, const CommandLine::Take& take, const std::string& value) {
    try {
        take(value);
    } catch (const ToolError& error) {
        throw ToolError(name + ": " + error.what());
    }
}

/// How many letters have to be added, removed or replaced to make one of the other.
size_t Distance(const std::string& one, const std::string& other) {
    std::vector<size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (size_t i = 0; i < one.size(); ++i) {
        size_t diagonal = std::exchange(row[0], i + 1);
        for (size_t j = 0; j < other.size(); ++j) {
            const size_t replaced = diagonal + (one[i] != other[j] ? 1 : 0);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

template <typename Number>
auto ParserIn(Number low, Number high) {
    return [low, high](const std::string& text) {
        Number number{};
        if (!CLI::detail::lexical_cast(text, number) || !(number >= low && number <= high)) {
            std::ostringstream message;
            message << std::setprecision(12) << text << " is no number from " << low << " to "
                    << high;
            throw ToolError(message.str());
        }
        return number;
    };
}

}  // namespace

struct CommandLine::Parser {
    CLI::App app;

    /// \throws ToolError that names the nearest option, for one that is not known
    void CheckKnown(const std::string& argument) const {
        const std::string name = argument.substr(0, argument.find('='));
        if (name.rfind("--", 0) != 0 || app.get_option_no_throw(name) != nullptr) {
            return;
        }
        std::string nearest;
        for (const CLI::Option* option : app.get_options()) {
            for (const std::string& known : option->get_lnames()) {
                if (nearest.empty() || Distance(name, "--" + known) < Distance(name, nearest)) {
                    nearest = "--" + known;
                }
            }
        }
        throw ToolError(name + " is no option; the nearest is " + nearest);
    }

    /// CLI11's templates for options take long to compile; this needs none of them.
    CLI::Option& Add(const std::string& name, const Take& take, const std::string& form,
                     const std::string& help) {
        const auto takeAll = [name, take](const CLI::results_t& values) {
            for (const std::string& value : values) {
                TakeFor(name, take, value);
            }
            return true;
        };
        return *app.add_option(name, takeAll, help)->type_name(form);
    }
};

CommandLine::CommandLine(const std::string& about, const std::string& program)
    : parser_(new Parser{CLI::App(about, program)}) {
    parser_->app.formatter(std::make_shared<PlainHelp>());
}

CommandLine::~CommandLine() = default;

void CommandLine::Notes(const std::string& text) {
    parser_->app.footer(text);
}

void CommandLine::Flag(const std::string& name, bool& value, const std::string& help) {
    parser_->app.add_flag(name, value, help)->group(group_);
}

void CommandLine::Flag(const std::string& name, const std::function<void()>& given,
                       const std::string& help) {
    parser_->app.add_flag_callback(name, given, help)->group(group_);
}

void CommandLine::Option(const std::string& name, const Take& take, const std::string& form,
                         const std::string& help) {
    parser_->Add(name, take, form, help).group(group_);
}

void CommandLine::Option(const std::string& name, std::string& value, const std::string& form,
                         const std::string& help) {
    Option(
        name, [&value](const std::string& text) { value = text; }, form, help);
}

void CommandLine::Repeated(const std::string& name, const Take& take, const std::string& form,
                           const std::string& help) {
    const bool isOption = name[0] == '-';  // It takes one value each time.
    parser_->Add(name, take, form, help)
        .expected(1, CLI::detail::expected_max_vector_size)
        ->allow_extra_args(!isOption)
        ->group(group_);
}

void CommandLine::Require(const std::string& name) {
    parser_->app.get_option(name)->required();
}

void CommandLine::Need(const std::string& name, const std::string& other) {
    parser_->app.get_option(name)->needs(parser_->app.get_option(other));
}

void CommandLine::Exclude(const std::string& name, const std::string& other) {
    parser_->app.get_option(name)->excludes(parser_->app.get_option(other));
}

void CommandLine::Version(const std::function<std::string()>& text) {
    parser_->app.set_version_flag("--version", text, "Print versions and exit")->group(group_);
}

bool CommandLine::Parse(int argc, char** argv) {
    for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
        parser_->CheckKnown(argv[i]);
    }
    try {
        parser_->app.parse(argc, argv);
        return true;
    } catch (const CLI::Success& request) {
        parser_->app.exit(request);
        return false;
    } catch (const CLI::ParseError& error) {
        const std::string message = error.what();
        throw ToolError(message.substr(0, message.find('\n')));
    }
}

Size ParseSize(const std::string& text) {
    constexpr int kLargest = 16384;
    Size size;
    int used = 0;
    // NOLINTNEXTLINE(cert-err34-c): %n and the range show what sscanf would let pass.
    const int fields = std::sscanf(text.c_str(), "%5dx%5d%n", &size.width, &size.height, &used);
    const bool whole = fields == 2 && static_cast<size_t>(used) == text.size();
    if (!whole || std::min(size.width, size.height) < 1 ||
        std::max(size.width, size.height) > kLargest) {
        throw ToolError(text + " is no size; give WIDTHxHEIGHT, each up to " +
                        std::to_string(kLargest));
    }
    return size;
}

std::function<double(const std::string&)> NumberIn(double low, double high) {
    return ParserIn(low, high);
}

std::function<int64_t(const std::string&)> WholeIn(int64_t low, int64_t high) {
    return ParserIn(low, high);
}
