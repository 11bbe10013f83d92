#include "support/CommandLine.h"

#include <algorithm>
#include <cstdio>

#include "support/ToolError.h"

std::string PlainHelp::make_option_opts(const CLI::Option* option) const {
    const std::string form = option->get_type_name();
    return form.empty() ? form : " " + form;
}

bool ParseCommandLine(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
        return true;
    } catch (const CLI::Success& request) {
        app.exit(request);
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
