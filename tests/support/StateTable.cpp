#include "support/StateTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>

namespace {

const std::string kOtherBuffers = "blending, draw buffers 1 and up";
const std::string kBuffer = ", draw buffer ";

/// Splits \p line at two or more spaces.
std::vector<std::string> Columns(const std::string& line) {
    static const std::regex gap(" {2,}");
    return {std::sregex_token_iterator(line.begin(), line.end(), gap, -1), {}};
}

StateNames Words(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

std::string Text(const std::vector<GLint>& values) {
    std::ostringstream text;
    std::copy(values.begin(), values.end(), std::ostream_iterator<GLint>(text, " "));
    return text.str();
}

std::string Replaced(std::string text, const std::string& part, const std::string& by) {
    const size_t at = text.find(part);
    return at == std::string::npos ? text : text.replace(at, part.size(), by);
}

/// One number of the column "is then".
GLint Number(const std::string& word, const StateCall& call) {
    static const std::string unit = "GL_TEXTURE";
    if (word == "width" || word == "height") {
        return word == "width" ? call.width : call.height;
    }
    return word.rfind(unit, 0) == 0 ? GL_TEXTURE0 + std::stoi(word.substr(unit.size()))
                                    : static_cast<GLint>(std::stoul(word, nullptr, 0));
}

}  // namespace

StateTable::StateTable(const std::string& header) {
    std::ifstream file(PUBLIC_HEADERS "/" + header);
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> columns = Columns(line);
        if (columns.size() >= 4 && columns[0] == "///") {
            const bool always = columns.size() == 4;
            rows_.push_back({columns[1], Words(always ? "" : columns[2]), columns[always ? 2 : 3],
                             columns[always ? 3 : 4]});
        }
    }
}

void StateTable::expectKept(const StateCall& call, const std::function<void()>& make) const {
    const GlSnapshot before;
    make();
    const GlSnapshot after = before.again();
    StateValues expected = before.values();
    StateNames own;
    for (const Row& row : rows_) {
        if (row.call == call.name && std::includes(call.given.begin(), call.given.end(),
                                                   row.conditions.begin(), row.conditions.end())) {
            apply(row, call, before.values(), expected, own);
        }
    }
    for (const auto& [state, now] : after.values()) {
        if (own.count(state) != 0) {
            EXPECT_TRUE(now[0] != 0 && now != before.values().at(state))
                << call.name << ": " << state;
        } else {
            EXPECT_EQ(Text(now), Text(expected.at(state))) << call.name << ": " << state;
        }
    }
}

void StateTable::apply(const Row& row, const StateCall& call, const StateValues& before,
                       StateValues& expected, StateNames& own) {
    if (row.state == kOtherBuffers) {
        for (auto& [state, values] : expected) {
            const size_t at = state.find(kBuffer);
            if (at != std::string::npos && state.rfind("GL_BLEND", 0) == 0) {
                values = before.at(state.substr(0, at) + kBuffer + "0");
            }
        }
        return;
    }
    const GLint unit = before.at("GL_ACTIVE_TEXTURE")[0] - static_cast<GLint>(GL_TEXTURE0);
    const GLint array = before.at("GL_VERTEX_ARRAY_BINDING")[0];
    std::string state = Replaced(row.state, "active unit", "unit " + std::to_string(unit));
    state = Replaced(state, "bound array", "array " + std::to_string(array));
    ASSERT_EQ(expected.count(state), 1U) << "no such state: " << state;
    own.erase(state);
    if (row.value == "own") {
        own.insert(state);
        return;
    }
    std::vector<GLint>& values = expected[state];
    std::fill(values.begin(), values.end(), 0);
    std::istringstream words(row.value);
    std::string word;
    for (size_t i = 0; words >> word; ++i) {
        values.at(i) = Number(word, call);
    }
}
