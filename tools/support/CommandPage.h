#pragma once

#include <string>
#include <vector>

/// What the help, the man page and the completions of a program say. All are made from this.
struct CommandPage {
    struct Option {
        std::string group;
        std::vector<std::string> names;    ///< "-q", "--quiet", or "INPUT" for an argument.
        std::string form;                  ///< Of the value, such as "WxH"; empty: takes none.
        std::vector<std::string> choices;  ///< The values that it takes; empty: not a list.
        std::string help;
        bool repeated = false;

        bool IsArgument() const { return names.front()[0] != '-'; }
        bool TakesFile() const { return form == "FILE" || form == "PNG" || form == "JSON"; }
        bool TakesDirectory() const { return form == "DIR"; }
    };
    /// Lines that begin with a space stay as they are; others flow.
    struct Note {
        std::string title;
        std::string text;
    };

    std::string program;
    std::string about;
    std::vector<Option> options;  ///< And arguments. Those of a group follow each other.
    std::vector<Note> notes;

    /// "vornplay [OPTION]... INPUT..."
    std::string Usage() const;
};

std::string HelpText(const CommandPage& page);
/// In the language of man(7).
std::string ManPage(const CommandPage& page);
std::string BashCompletion(const CommandPage& page);
std::string ZshCompletion(const CommandPage& page);
