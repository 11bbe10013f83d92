#include <algorithm>
#include <cctype>
#include <sstream>

#include "support/CommandPage.h"

namespace {

std::string Upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

/// So that each letter stands for itself.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char letter : text) {
        switch (letter) {
            case '\\': escaped += "\\e"; break;
            case '-': escaped += "\\-"; break;
            case '\'': escaped += "\\(aq"; break;
            case '.': escaped += escaped.empty() ? "\\&." : "."; break;
            default: escaped += letter;
        }
    }
    return escaped;
}

void PrintOption(std::ostream& out, const CommandPage::Option& option) {
    out << ".TP\n";
    std::string head;
    for (const std::string& name : option.names) {
        head += (head.empty() ? "\\fB" : ", \\fB") + Escaped(name) + "\\fR";
    }
    if (!option.IsArgument() && !option.form.empty()) {
        head += " \\fI" + Escaped(option.form) + "\\fR";
    }
    out << head << '\n' << Escaped(option.help) << ".\n";
    if (!option.choices.empty() && option.form.find('|') == std::string::npos) {
        out << option.form << " is one of";
        for (const std::string& choice : option.choices) {
            out << (&choice == &option.choices.front() ? " " : ", ") << Escaped(choice);
        }
        out << ".\n";
    }
}

void PrintNote(std::ostream& out, const CommandPage::Note& note) {
    out << ".SH " << Upper(note.title) << '\n';
    std::istringstream lines(note.text);
    bool kept = false;
    for (std::string line; std::getline(lines, line);) {
        const bool keep = line.rfind(' ', 0) == 0;
        if (keep != kept) {
            out << (keep ? ".nf\n" : ".fi\n");
        }
        kept = keep;
        out << (line.empty() ? ".PP" : Escaped(keep ? line.substr(2) : line)) << '\n';
    }
    if (kept) {
        out << ".fi\n";
    }
}

}  // namespace

std::string ManPage(const CommandPage& page) {
    std::ostringstream out;
    out << ".TH " << Upper(page.program) << " 1\n.SH NAME\n"
        << page.program << " \\- " << Escaped(page.about) << "\n.SH SYNOPSIS\n"
        << Escaped(page.Usage()) << '\n';
    std::string group;
    for (const CommandPage::Option& option : page.options) {
        if (group.empty()) {
            out << ".SH OPTIONS\n";
        }
        if (option.group != group) {
            group = option.group;
            out << ".SS " << group << '\n';
        }
        PrintOption(out, option);
    }
    for (const CommandPage::Note& note : page.notes) {
        PrintNote(out, note);
    }
    return out.str();
}
