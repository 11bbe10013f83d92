#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "support/GlSnapshot.h"

using StateNames = std::set<std::string>;

/// A call, as the tables of the public headers name it.
struct StateCall {
    std::string name;  ///< Such as "draw".
    StateNames given;  ///< What is true of it, such as "raw" and "frame".
    int width = 0;     ///< Of the destination.
    int height = 0;
};

/// The table of a public header that promises which GL state each call changes, and to what.
class StateTable {
public:
    /// \param header a file name in include/render.
    explicit StateTable(const std::string& header);

    /// Makes the call. The test fails for each state that is then not as the table promises.
    void expectKept(const StateCall& call, const std::function<void()>& make) const;

private:
    struct Row {
        std::string call;
        StateNames conditions;
        std::string state;
        std::string value;
    };

    static void apply(const Row& row, const StateCall& call, const StateValues& before,
                      StateValues& expected, StateNames& own);

    std::vector<Row> rows_;
};
