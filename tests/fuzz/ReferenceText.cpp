#include "ReferenceText.h"

#include <algorithm>

namespace {

struct Range {
    uint8_t low;
    uint8_t high;
};

/// The well-formed sequences, as ranges of their bytes.
const std::vector<std::vector<Range>> kWellFormed = {
    {{0x00, 0x7F}},
    {{0xC2, 0xDF}, {0x80, 0xBF}},
    {{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}},
    {{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}},
    {{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}},
    {{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}},
};

/// How many bytes of \p utf8 from \p start on agree with the beginning of \p sequence.
size_t Agreeing(const std::string& utf8, size_t start, const std::vector<Range>& sequence) {
    size_t count = 0;
    while (count < sequence.size() && start + count < utf8.size()) {
        const auto byte = static_cast<uint8_t>(utf8[start + count]);
        if (byte < sequence[count].low || byte > sequence[count].high) {
            break;
        }
        ++count;
    }
    return count;
}

uint32_t ValueOf(const std::string& bytes) {
    constexpr uint32_t kLeadMasks[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    uint32_t value = static_cast<uint8_t>(bytes[0]) & kLeadMasks[bytes.size()];
    for (size_t i = 1; i < bytes.size(); ++i) {
        value = value * 64 + static_cast<uint8_t>(bytes[i]) % 64;
    }
    return value;
}

ReferenceChar ReadOne(const std::string& utf8, size_t start) {
    size_t longest = 1;
    for (const std::vector<Range>& sequence : kWellFormed) {
        const size_t agreeing = Agreeing(utf8, start, sequence);
        if (agreeing == sequence.size()) {
            const std::string bytes = utf8.substr(start, agreeing);
            return {ValueOf(bytes), bytes};
        }
        longest = std::max(longest, agreeing);
    }
    return {0xFFFD, utf8.substr(start, longest)};
}

}  // namespace

std::vector<ReferenceChar> ReadUtf8(const std::string& utf8) {
    std::vector<ReferenceChar> text;
    for (size_t start = 0; start < utf8.size(); start += text.back().bytes.size()) {
        text.push_back(ReadOne(utf8, start));
    }
    return text;
}
