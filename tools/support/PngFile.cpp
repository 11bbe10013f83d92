#include "support/PngFile.h"

#include <png.h>

#include <vector>

#include "support/ToolError.h"

namespace {

/// libpng's record of one picture, freed also when reading fails.
struct PngRecord {
    PngRecord() { record.version = PNG_IMAGE_VERSION; }
    ~PngRecord() { png_image_free(&record); }
    PngRecord(const PngRecord&) = delete;
    PngRecord& operator=(const PngRecord&) = delete;

    png_image record{};
};

Image FinishReading(png_image& record, const std::string& name) {
    record.format = PNG_FORMAT_RGBA;
    Image image({static_cast<int>(record.width), static_cast<int>(record.height)});
    if (png_image_finish_read(&record, nullptr, image.pixels.data(), 0, nullptr) == 0) {
        throw ToolError(name + ": " + record.message);
    }
    return image;
}

std::vector<uint8_t> Encode(const std::string& path, Size size, png_uint_32 format,
                            const uint8_t* pixels) {
    PngRecord png;
    png.record.width = static_cast<png_uint_32>(size.width);
    png.record.height = static_cast<png_uint_32>(size.height);
    png.record.format = format;
    png.record.flags = PNG_IMAGE_FLAG_FAST;
    png_alloc_size_t count = PNG_IMAGE_PNG_SIZE_MAX(png.record);
    std::vector<uint8_t> bytes(count);
    if (png_image_write_to_memory(&png.record, bytes.data(), &count, 0, pixels, 0, nullptr) == 0) {
        throw ToolError(path + ": cannot be written: " + png.record.message);
    }
    bytes.resize(count);
    return bytes;
}

void Write(const std::string& path, const std::vector<uint8_t>& bytes, Existing existing) {
    OutputFile file(path, existing);
    file.Write(bytes.data(), bytes.size());
    file.Commit();
}

}  // namespace

Image ReadPng(const std::string& path) {
    PngRecord png;
    if (png_image_begin_read_from_file(&png.record, path.c_str()) == 0) {
        throw ToolError(path + ": " + png.record.message);
    }
    return FinishReading(png.record, path);
}

Image DecodePng(const uint8_t* data, size_t size) {
    PngRecord png;
    if (png_image_begin_read_from_memory(&png.record, data, size) == 0) {
        throw ToolError(png.record.message);
    }
    return FinishReading(png.record, "PNG");
}

std::vector<uint8_t> EncodePng(const std::string& path, const Image& image) {
    return Encode(path, image.size, PNG_FORMAT_RGBA, image.pixels.data());
}

void WritePng(const std::string& path, const Image& image, Existing existing) {
    Write(path, EncodePng(path, image), existing);
}

void WriteGrayPng(const std::string& path, Size size, const uint8_t* pixels) {
    Write(path, Encode(path, size, PNG_FORMAT_GRAY, pixels), Existing::kReplaced);
}
