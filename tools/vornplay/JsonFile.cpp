#include "JsonFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <system_error>
#include <utility>
#include <vector>

#include "support/ToolError.h"

namespace {

using nlohmann::json;

std::string ReadText(const std::string& path) {
    constexpr size_t kMost = 1 << 20;
    std::ifstream file(path, std::ios::binary);
    std::string text(kMost + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (file.bad() || !file.is_open()) {
        throw ToolError(path + ": " + std::generic_category().message(errno));
    }
    text.resize(static_cast<size_t>(file.gcount()));
    if (text.size() > kMost) {
        throw ToolError(path + ": larger than 1 MiB, which no script needs");
    }
    return text;
}

/// In one line, whatever the file's texts have in them.
[[noreturn]] void FailAt(const std::string& path, int line, std::string what) {
    std::replace_if(
        what.begin(), what.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
    throw ToolError(path + ":" + std::to_string(line) + ": " + what);
}

/// Notes the line of each value while the parser reads the text. A key that comes twice is an
/// error; without this the parser would keep one of the two.
class LineRecorder : public nlohmann::json_sax<json> {
public:
    LineRecorder(std::string path, const std::string& text)
        : path_(std::move(path)), text_(text), stream_(text) {}

    std::map<std::string, int> Record() {
        json::sax_parse(stream_, this);
        return std::move(lines_);
    }

    bool null() override { return Value(); }
    bool boolean(bool /*value*/) override { return Value(); }
    bool number_integer(number_integer_t /*value*/) override { return Value(); }
    bool number_unsigned(number_unsigned_t /*value*/) override { return Value(); }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override {
        return Value();
    }
    bool string(string_t& /*value*/) override { return Value(); }
    bool binary(binary_t& /*value*/) override { return Value(); }
    bool start_object(std::size_t /*count*/) override { return Open(false); }
    bool start_array(std::size_t /*count*/) override { return Open(true); }
    bool end_object() override { return Close(); }
    bool end_array() override { return Close(); }

    bool key(string_t& name) override {
        Container& object = open_.back();
        if (!object.keys.insert(name).second) {
            FailAt(path_, Line(), "\"" + name + "\" is there twice");
        }
        object.key = name;
        return true;
    }

    bool parse_error(std::size_t position, const std::string& /*token*/,
                     const json::exception& error) override {
        // After the library's "[…] parse error at line 1, column 2: ".
        const std::string what = error.what();
        const size_t colon = what.find(": ");
        const size_t head = what.find("] ");
        const size_t skipped = colon != std::string::npos ? colon : head;
        FailAt(path_, LineAt(position),
               skipped != std::string::npos ? what.substr(skipped + 2) : what);
    }

private:
    struct Container {
        bool array = false;
        size_t next = 0;
        std::string key;
        std::set<std::string> keys;
    };

    /// The line of the byte before \p position, which never goes back.
    int LineAt(size_t position) {
        const size_t before = std::min(position, text_.size());
        const size_t end = std::max(counted_, before > 0 ? before - 1 : 0);
        const auto at = [this](size_t index) {
            return text_.begin() + static_cast<ptrdiff_t>(index);
        };
        line_ += static_cast<int>(std::count(at(counted_), at(end), '\n'));
        counted_ = end;
        return line_;
    }

    /// The line of the token that was read last. After a number the parser has read one more byte.
    int Line() {
        const auto read = stream_.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in);
        return LineAt(read < 0 ? text_.size() : static_cast<size_t>(read));
    }

    bool Value() {
        if (!open_.empty()) {
            Container& container = open_.back();
            where_.push_back(container.array ? std::to_string(container.next++) : container.key);
        }
        lines_[where_.to_string()] = Line();
        Leave();
        return true;
    }

    bool Open(bool array) {
        constexpr size_t kDeepest = 16;
        if (open_.size() == kDeepest) {
            FailAt(path_, Line(), "nested too deep");
        }
        Value();
        if (!open_.empty()) {
            Container& container = open_.back();
            where_.push_back(container.array ? std::to_string(container.next - 1) : container.key);
        }
        open_.push_back({array, 0, {}, {}});
        return true;
    }

    bool Close() {
        open_.pop_back();
        Leave();
        return true;
    }

    void Leave() {
        if (!open_.empty()) {
            where_.pop_back();
        }
    }

    std::string path_;
    const std::string& text_;
    std::istringstream stream_;
    size_t counted_ = 0;  ///< Bytes whose line ends are in line_.
    int line_ = 1;
    std::vector<Container> open_;
    json::json_pointer where_;
    std::map<std::string, int> lines_;
};

}  // namespace

JsonFile::JsonFile(std::string path) : path_(std::move(path)) {
    const std::string text = ReadText(path_);
    lines_ = LineRecorder(path_, text).Record();
    root_ = json::parse(text);
}

void JsonFile::Fail(const Pointer& where, const std::string& what) const {
    FailAt(path_, lines_.at(where.to_string()), what);
}
