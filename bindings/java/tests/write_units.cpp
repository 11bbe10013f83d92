// Writes a short H.264 video, each unit behind its length in four bytes: write_units FILE

#include <cstdio>
#include <fstream>

#include "TestStream.h"

namespace {

void Write(std::ofstream& file, const std::vector<uint8_t>& bytes) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        file.put(static_cast<char>(bytes.size() >> shift));
    }
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        (void)std::fputs("usage: write_units FILE\n", stderr);
        return 2;
    }
    TestStream stream;
    stream.picture = [](int n) { return Grey(static_cast<uint8_t>(60 + 20 * n)); };
    std::ofstream file(argv[1], std::ios::binary);
    for (const TestUnit& unit : Encode(stream, 8)) {
        Write(file, unit.bytes);
    }
    return file.flush() ? 0 : 1;
}
