#include "Script.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <initializer_list>
#include <string_view>

#include "JsonFile.h"

namespace {

using nlohmann::json;
using Pointer = JsonFile::Pointer;

constexpr double kFarthest = 1e6;

/// One value of the file, and its place in the file.
class Value {
public:
    Value(const JsonFile& file, Pointer where) : file_(file), where_(std::move(where)) {}

    [[noreturn]] void Fail(const std::string& what) const { file_.Fail(where_, what); }

    const json& Json() const { return file_.Root().at(where_); }
    Value Of(const char* key) const { return {file_, where_ / key}; }
    Value At(size_t index) const { return {file_, where_ / index}; }
    bool Has(const char* key) const { return Json().contains(key); }

    /// An object with no other keys than these.
    void CheckKeys(std::initializer_list<std::string_view> known) const {
        if (!Json().is_object()) {
            Fail(Name() + " must be an object { … }");
        }
        for (const auto& [key, value] : Json().items()) {
            if (std::find(known.begin(), known.end(), key) == known.end()) {
                file_.Fail(where_ / key, "\"" + key + "\" is not known here");
            }
        }
    }

    size_t Count() const {
        if (!Json().is_array()) {
            Fail(Name() + " must be a list [ … ]");
        }
        return Json().size();
    }

    double Number(double low, double high) const {
        const double number = Json().is_number() ? Json().get<double>() : NAN;
        if (!(number >= low && number <= high)) {
            Fail(Name() + " must be a number from " + Short(low) + " to " + Short(high));
        }
        return number;
    }

    bool Flag() const {
        if (!Json().is_boolean()) {
            Fail(Name() + " must be true or false");
        }
        return Json().get<bool>();
    }

    std::string Text() const {
        if (!Json().is_string()) {
            Fail(Name() + " must be a text");
        }
        return Json().get<std::string>();
    }

private:
    static std::string Short(double number) { return std::to_string(std::lround(number)); }

    /// The key of the value, or of the list that it is in.
    std::string Name() const {
        Pointer where = where_;
        while (!where.empty() &&
               where.back().find_first_not_of("0123456789") == std::string::npos) {
            where.pop_back();
        }
        const std::string inside = where.to_string() != where_.to_string() ? "what is in " : "";
        return where.empty() ? "a script" : inside + "\"" + where.back() + "\"";
    }

    const JsonFile& file_;
    Pointer where_;
};

VEView ReadView(const Value& value) {
    if (value.Json() == "fit") {
        return kFitView;
    }
    if (!value.Json().is_object()) {
        value.Fail("\"view\" must be \"fit\" or an object { \"x\": …, \"y\": …, \"zoom\": … }");
    }
    value.CheckKeys({"x", "y", "zoom"});
    VEView view = kFitView;
    if (value.Has("x")) {
        view.x = static_cast<float>(value.Of("x").Number(-kFarthest, kFarthest));
    }
    if (value.Has("y")) {
        view.y = static_cast<float>(value.Of("y").Number(-kFarthest, kFarthest));
    }
    if (value.Has("zoom")) {
        view.zoom = static_cast<float>(value.Of("zoom").Number(-kFarthest, kNearestZoom));
    }
    return view;
}

VEStickerList ReadStickers(const Value& value) {
    VEStickerList stickers;
    for (size_t i = 0; i < value.Count(); ++i) {
        const Value position = value.At(i);
        if (position.Count() != 2) {
            position.Fail("a sticker's position must be [x, y]");
        }
        stickers.emplace_back(std::lround(position.At(0).Number(-kFarthest, kFarthest)),
                              std::lround(position.At(1).Number(-kFarthest, kFarthest)));
    }
    return stickers;
}

Keyframe ReadKeyframe(const Value& value, double after) {
    value.CheckKeys({"time", "view", "mirror", "stickers"});
    if (!value.Has("time")) {
        value.Fail("a keyframe needs a \"time\"");
    }
    Keyframe keyframe;
    keyframe.seconds = value.Of("time").Number(0.0, kFarthest);
    if (keyframe.seconds <= after) {
        value.Of("time").Fail("\"time\" must be later than that of the keyframe before");
    }
    if (value.Has("view")) {
        keyframe.view = ReadView(value.Of("view"));
    }
    if (value.Has("mirror")) {
        keyframe.mirror = value.Of("mirror").Flag();
    }
    if (value.Has("stickers")) {
        keyframe.stickers = ReadStickers(value.Of("stickers"));
    }
    return keyframe;
}

std::vector<Keyframe> ReadKeyframes(const Value& value, bool hasSticker) {
    std::vector<Keyframe> keyframes;
    for (size_t i = 0; i < value.Count(); ++i) {
        keyframes.push_back(ReadKeyframe(value.At(i), i > 0 ? keyframes.back().seconds : -1.0));
        if (keyframes.back().stickers.has_value() && !hasSticker) {
            value.At(i).Of("stickers").Fail(R"("stickers" need a picture: "sticker" or --sticker)");
        }
    }
    if (keyframes.empty()) {
        value.Fail("\"keyframes\" has none");
    }
    return keyframes;
}

/// Relative names begin at the directory of the script.
std::string Resolve(const std::string& script, const std::string& name) {
    return (std::filesystem::path(script).parent_path() / name).string();
}

}  // namespace

Script ReadScript(const std::string& path, bool hasSticker) {
    const JsonFile file(path);
    const Value root(file, Pointer());
    root.CheckKeys({"sticker", "keyframes"});
    if (!root.Has("keyframes")) {
        root.Fail("a script needs \"keyframes\"");
    }
    Script script;
    if (root.Has("sticker")) {
        script.sticker = Resolve(path, root.Of("sticker").Text());
    }
    script.keyframes = ReadKeyframes(root.Of("keyframes"), hasSticker || !script.sticker.empty());
    return script;
}
