#include "support/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iomanip>
#include <iostream>
#include <numeric>
#include <sstream>
#include <string_view>
#include <utility>

#include "support/CommandPage.h"
#include "support/ToolError.h"

namespace {

/// "-q,--quiet" as a list.
std::vector<std::string> NamesIn(const std::string& names) {
    std::vector<std::string> list;
    std::istringstream text(names);
    for (std::string name; std::getline(text, name, ',');) {
        list.push_back(name);
    }
    return list;
}

/// "a, b or c"
std::string Listed(const std::vector<std::string>& words, const char* separator,
                   const char* lastSeparator) {
    std::string list;
    for (const std::string& word : words) {
        list += (list.empty() ? "" : &word == &words.back() ? lastSeparator : separator) + word;
    }
    return list;
}

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
    CommandPage page;
    std::string printed;  ///< What the user asked for instead of a run.

    /// \throws ToolError that names the nearest option, for one that is not known
    void CheckKnown(const std::string& argument) const {
        const std::string name = argument.substr(0, argument.find('='));
        if (name.rfind("--", 0) != 0 || app.get_option_no_throw(name) != nullptr) {
            return;
        }
        std::string nearest;
        for (const CommandPage::Option& option : page.options) {
            for (const std::string& known : option.names) {
                if (nearest.empty() || Distance(name, known) < Distance(name, nearest)) {
                    nearest = known;
                }
            }
        }
        throw ToolError(name + " is no option; the nearest is " + nearest);
    }

    void Describe(CommandPage::Option option) { page.options.push_back(std::move(option)); }

    /// CLI11's templates for options take long to compile; this needs none of them.
    CLI::Option& Add(const std::string& names, const Take& take) {
        const auto takeAll = [name = NamesIn(names).back(), take](const CLI::results_t& values) {
            for (const std::string& value : values) {
                TakeFor(name, take, value);
            }
            return true;
        };
        return *app.add_option(names, takeAll, "");
    }
};

CommandLine::CommandLine(const std::string& about, const std::string& program)
    : parser_(new Parser{CLI::App(about, program), {program, about, {}, {}}, {}}) {
    parser_->app.set_help_flag();
}

CommandLine::~CommandLine() = default;

void CommandLine::Note(const std::string& title, const std::string& text) {
    parser_->page.notes.push_back({title, text});
}

void CommandLine::Flag(const std::string& name, bool& value, const std::string& help) {
    Flag(
        name, [&value] { value = true; }, help);
}

void CommandLine::Flag(const std::string& name, const std::function<void()>& given,
                       const std::string& help) {
    parser_->app.add_flag_callback(name, given, help);
    parser_->Describe({group_, NamesIn(name), "", {}, help, false});
}

void CommandLine::Option(const std::string& name, const Take& take, const std::string& form,
                         const std::string& help) {
    parser_->Add(name, take);
    parser_->Describe({group_, NamesIn(name), form, {}, help, false});
}

void CommandLine::Option(const std::string& name, std::string& value, const std::string& form,
                         const std::string& help) {
    Option(
        name, [&value](const std::string& text) { value = text; }, form, help);
}

void CommandLine::Choice(const std::string& name, const Take& take,
                         const std::vector<std::string>& words, const std::string& help,
                         const std::string& form) {
    parser_->Add(name, [take, words](const std::string& text) {
        if (std::find(words.begin(), words.end(), text) == words.end()) {
            throw ToolError(text + " is none of " + Listed(words, ", ", " and "));
        }
        take(text);
    });
    parser_->Describe(
        {group_, NamesIn(name), form.empty() ? Listed(words, "|", "|") : form, words, help, false});
}

void CommandLine::Repeated(const std::string& name, const Take& take, const std::string& form,
                           const std::string& help) {
    const bool isOption = name[0] == '-';  // It takes one value each time.
    parser_->Add(name, take)
        .expected(1, CLI::detail::expected_max_vector_size)
        ->allow_extra_args(!isOption);
    parser_->Describe({group_, NamesIn(name), form, {}, help, true});
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

/// The options that end a run at once. CLI11 stops on its "success".
void CommandLine::AddOwn() {
    const auto print = [this](const std::string& text) {
        parser_->printed = text;
        throw CLI::Success();
    };
    const CommandPage& page = parser_->page;
    Group("This program");
    if (version_ != nullptr) {
        Flag(
            "--version", [=] { print(version_() + "\n"); }, "Print versions and exit");
    }
    Flag(
        "-h,--help", [=, &page] { print(HelpText(page)); }, "Print this help and exit");
    Choice(
        "--generate",
        [=, &page](const std::string& what) {
            print(what == "man"    ? ManPage(page)
                  : what == "bash" ? BashCompletion(page)
                                   : ZshCompletion(page));
        },
        {"man", "bash", "zsh"},
        "Print the man page, or a completion script of the shell, and exit");
}

bool CommandLine::Parse(int argc, char** argv) {
    AddOwn();
    for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
        parser_->CheckKnown(argv[i]);
    }
    try {
        parser_->app.parse(argc, argv);
        return true;
    } catch (const CLI::Success&) {
        std::cout << parser_->printed;
        return false;
    } catch (const CLI::ParseError& error) {
        const std::string message = error.what();
        throw ToolError(message.substr(0, message.find('\n')));
    }
}

std::vector<std::pair<std::string, std::vector<std::string>>> CommandLine::Given() const {
    std::vector<std::pair<std::string, std::vector<std::string>>> given;
    for (const CLI::Option* option : parser_->app.get_options()) {
        if (option->count() > 0) {
            given.emplace_back(option->get_name(), option->results());
        }
    }
    return given;
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
