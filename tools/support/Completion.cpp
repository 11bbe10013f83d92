#include <sstream>

#include "support/CommandPage.h"

namespace {

/// \return \p items, with \p between them
std::string Joined(const std::vector<std::string>& items, const char* between) {
    std::string joined;
    for (const std::string& item : items) {
        joined += (joined.empty() ? "" : between) + item;
    }
    return joined;
}

/// The command that offers values of the option.
std::string BashValues(const CommandPage::Option& option) {
    if (!option.choices.empty()) {
        return "compgen -W '" + Joined(option.choices, " ") + "'";
    }
    if (option.TakesFile()) {
        return "compgen -f";
    }
    return option.TakesDirectory() ? "compgen -d" : "";
}

/// As it is written in a quoted argument of _arguments.
std::string ZshText(const std::string& text) {
    std::string escaped;
    for (const char letter : text) {
        if (letter == '\'') {
            escaped += "'\\''";
        } else if (letter == '[' || letter == ']' || letter == ':' || letter == '\\') {
            escaped += std::string("\\") + letter;
        } else {
            escaped += letter;
        }
    }
    return escaped;
}

std::string ZshValues(const CommandPage::Option& option) {
    const std::string message = ":" + ZshText(option.form) + ":";
    if (!option.choices.empty()) {
        return message + "(" + Joined(option.choices, " ") + ")";
    }
    if (option.TakesFile()) {
        return message + "_files";
    }
    return message + (option.TakesDirectory() ? "_files -/" : "");
}

std::string ZshSpec(const CommandPage::Option& option) {
    if (option.IsArgument()) {
        return std::string("'") + (option.repeated ? "*" : "") + ":" + option.names.front() +
               ":_files'";
    }
    const bool value = !option.form.empty();
    std::vector<std::string> names;
    for (const std::string& name : option.names) {
        names.push_back(name + (value && name.rfind("--", 0) == 0 ? "=" : ""));
    }
    const std::string rest = "[" + ZshText(option.help) + "]" + (value ? ZshValues(option) : "");
    const std::string often = option.repeated ? "*" : "";
    if (names.size() == 1) {
        return "'" + often + names.front() + rest + "'";
    }
    return "'(" + Joined(option.names, " ") + ")'{" + Joined(names, ",") + "}'" + rest + "'";
}

}  // namespace

std::string BashCompletion(const CommandPage& page) {
    std::ostringstream out;
    std::vector<std::string> names;
    out << "# bash completion of " << page.program << "\n_" << page.program << "() {\n"
        << "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} values\n"
        << "    [[ $cur == '=' ]] && cur='' && COMP_WORDS[COMP_CWORD]=''\n"
        << "    [[ $prev == '=' ]] && prev=${COMP_WORDS[COMP_CWORD - 2]}\n"
        << "    values='compgen -f'\n    case $prev in\n";
    for (const CommandPage::Option& option : page.options) {
        if (option.IsArgument()) {
            continue;
        }
        names.insert(names.end(), option.names.begin(), option.names.end());
        if (!option.form.empty()) {
            out << "    " << Joined(option.names, " | ") << ") values=\"" << BashValues(option)
                << "\" ;;\n";
        }
    }
    out << "    *) [[ $cur == -* ]] && values=\"compgen -W '" << Joined(names, " ") << "'\" ;;\n"
        << "    esac\n    COMPREPLY=()\n"
        << "    [[ -z $values ]] || mapfile -t COMPREPLY < <(eval \"$values\" -- '\"$cur\"')\n}\n"
        << "complete -o filenames -F _" << page.program << ' ' << page.program << '\n';
    return out.str();
}

std::string ZshCompletion(const CommandPage& page) {
    std::ostringstream out;
    out << "#compdef " << page.program << "\n_arguments -S";
    for (const CommandPage::Option& option : page.options) {
        out << " \\\n    " << ZshSpec(option);
    }
    out << '\n';
    return out.str();
}
