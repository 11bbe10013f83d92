#include "MediaFormat.h"

#include <sstream>

namespace {

using Bytes = AMediaFormat::Bytes;

template <class T>
bool Get(const AMediaFormat* format, const char* name, T* out) {
    if (format == nullptr || name == nullptr || out == nullptr) {
        return false;
    }
    const T* value = format->Find<T>(name);
    if (value == nullptr) {
        return false;
    }
    *out = *value;
    return true;
}

template <class T>
void Set(AMediaFormat* format, const char* name, T value) {
    if (format != nullptr && name != nullptr) {
        format->values[name] = std::move(value);
    }
}

struct Printer {
    std::ostringstream& out;

    template <class T>
    void operator()(const T& value) const {
        out << value;
    }
    void operator()(const Bytes& value) const { out << value.size() << " bytes"; }
};

}  // namespace

extern "C" {

AMediaFormat* AMediaFormat_new() {
    return new AMediaFormat;
}

media_status_t AMediaFormat_delete(AMediaFormat* format) {
    delete format;
    return AMEDIA_OK;
}

const char* AMediaFormat_toString(AMediaFormat* format) {
    std::ostringstream out;
    for (const auto& [name, value] : format->values) {
        out << (out.tellp() > 0 ? ", " : "") << name << ": ";
        std::visit(Printer{out}, value);
    }
    format->text = out.str();
    return format->text.c_str();
}

bool AMediaFormat_getInt32(AMediaFormat* format, const char* name, int32_t* out) {
    return Get(format, name, out);
}

bool AMediaFormat_getInt64(AMediaFormat* format, const char* name, int64_t* out) {
    return Get(format, name, out);
}

bool AMediaFormat_getFloat(AMediaFormat* format, const char* name, float* out) {
    return Get(format, name, out);
}

bool AMediaFormat_getBuffer(AMediaFormat* format, const char* name, void** data, size_t* size) {
    if (format == nullptr || name == nullptr || format->Find<Bytes>(name) == nullptr) {
        return false;
    }
    auto& bytes = std::get<Bytes>(format->values[name]);
    *data = bytes.data();
    *size = bytes.size();
    return true;
}

bool AMediaFormat_getString(AMediaFormat* format, const char* name, const char** out) {
    if (format == nullptr || name == nullptr || format->Find<std::string>(name) == nullptr) {
        return false;
    }
    *out = format->Find<std::string>(name)->c_str();
    return true;
}

void AMediaFormat_setInt32(AMediaFormat* format, const char* name, int32_t value) {
    Set(format, name, value);
}

void AMediaFormat_setInt64(AMediaFormat* format, const char* name, int64_t value) {
    Set(format, name, value);
}

void AMediaFormat_setFloat(AMediaFormat* format, const char* name, float value) {
    Set(format, name, value);
}

void AMediaFormat_setBuffer(AMediaFormat* format, const char* name, const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    Set(format, name, Bytes(bytes, bytes + size));
}

void AMediaFormat_setString(AMediaFormat* format, const char* name, const char* value) {
    Set(format, name, std::string(value));
}

const char* AMEDIAFORMAT_KEY_BIT_RATE = "bitrate";
const char* AMEDIAFORMAT_KEY_COLOR_FORMAT = "color-format";
const char* AMEDIAFORMAT_KEY_COLOR_RANGE = "color-range";
const char* AMEDIAFORMAT_KEY_COLOR_STANDARD = "color-standard";
const char* AMEDIAFORMAT_KEY_CSD_0 = "csd-0";
const char* AMEDIAFORMAT_KEY_CSD_1 = "csd-1";
const char* AMEDIAFORMAT_KEY_DURATION = "durationUs";
const char* AMEDIAFORMAT_KEY_FRAME_RATE = "frame-rate";
const char* AMEDIAFORMAT_KEY_HEIGHT = "height";
const char* AMEDIAFORMAT_KEY_MAX_INPUT_SIZE = "max-input-size";
const char* AMEDIAFORMAT_KEY_MIME = "mime";
const char* AMEDIAFORMAT_KEY_SLICE_HEIGHT = "slice-height";
const char* AMEDIAFORMAT_KEY_STRIDE = "stride";
const char* AMEDIAFORMAT_KEY_WIDTH = "width";

}  // extern "C"
