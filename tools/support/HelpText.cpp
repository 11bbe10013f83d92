#include <iomanip>
#include <sstream>

#include "support/CommandPage.h"

namespace {

constexpr size_t kWidth = 90;
constexpr size_t kColumn = 28;  ///< Where the texts of the options begin.

/// Breaks \p text into lines, of which all but the first begin in column \p indent.
void PrintFlowing(std::ostream& out, const std::string& text, size_t indent) {
    std::istringstream words(text);
    size_t column = indent;
    for (std::string word; words >> word;) {
        if (column > indent && column + 1 + word.size() > kWidth) {
            out << '\n' << std::string(indent, ' ');
            column = indent;
        } else if (column > indent) {
            out << ' ';
            ++column;
        }
        out << word;
        column += word.size();
    }
    out << '\n';
}

void PrintOption(std::ostream& out, const CommandPage::Option& option) {
    std::string head = " ";
    for (const std::string& name : option.names) {
        head += (head == " " ? " " : ", ") + name;
    }
    if (!option.IsArgument() && !option.form.empty()) {
        head += " " + option.form;
    }
    out << std::left << std::setw(kColumn) << head;
    if (head.size() >= kColumn) {
        out << '\n' << std::string(kColumn, ' ');
    }
    PrintFlowing(out, option.help, kColumn);
}

void PrintNote(std::ostream& out, const CommandPage::Note& note) {
    out << '\n' << note.title << ":\n";
    std::istringstream lines(note.text);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(' ', 0) == 0) {
            out << line << '\n';
        } else {
            out << "  ";
            PrintFlowing(out, line, 2);
        }
    }
}

}  // namespace

std::string CommandPage::Usage() const {
    std::string usage = program + " [OPTION]...";
    for (const Option& option : options) {
        if (option.IsArgument()) {
            usage += " " + option.names.front() + (option.repeated ? "..." : "");
        }
    }
    return usage;
}

std::string HelpText(const CommandPage& page) {
    std::ostringstream out;
    out << page.about << "\nUsage: " << page.Usage() << '\n';
    std::string group;
    for (const CommandPage::Option& option : page.options) {
        if (option.group != group) {
            group = option.group;
            out << '\n' << group << ":\n";
        }
        PrintOption(out, option);
    }
    for (const CommandPage::Note& note : page.notes) {
        PrintNote(out, note);
    }
    return out.str();
}
