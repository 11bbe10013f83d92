// The browser decodes PNG files. The test's page leaves their width, height and pixels.

#include <fstream>

#include "support/PngFile.h"
#include "support/ToolError.h"

Image ReadPng(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    Size size;
    file.read(reinterpret_cast<char*>(&size), sizeof(size));
    Image image(size);
    file.read(reinterpret_cast<char*>(image.pixels.data()),
              static_cast<std::streamsize>(image.pixels.size()));
    if (!file) {
        throw ToolError(path + " cannot be read");
    }
    return image;
}
