// Writes one H.264 access unit, a picture in the gray level 200 of RGB: write_unit FILE

#include <fstream>

#include "TestStream.h"

int main(int argc, char** argv) {
    TestStream stream;
    stream.picture = [](int) { return Gray(16 + 200 * 219 / 255); };
    const std::vector<uint8_t> unit = Encode(stream, 1).front().bytes;
    std::ofstream file(argc > 1 ? argv[1] : "", std::ios::binary);
    file.write(reinterpret_cast<const char*>(unit.data()),
               static_cast<std::streamsize>(unit.size()));
    return file.flush() ? 0 : 1;
}
