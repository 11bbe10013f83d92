#pragma once

#include <media/NdkMediaFormat.h>

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

struct AMediaFormat {
    using Bytes = std::vector<uint8_t>;
    using Value = std::variant<int32_t, int64_t, float, std::string, Bytes>;

    /// \return null if there is no value of that name and type.
    template <class T>
    const T* Find(const char* name) const {
        const auto found = values.find(name);
        return found != values.end() ? std::get_if<T>(&found->second) : nullptr;
    }

    std::map<std::string, Value> values;
    std::string text;  ///< The last result of AMediaFormat_toString.
};
