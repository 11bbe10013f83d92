// Writes a generated clip: makeclip WIDTH HEIGHT COUNT FILE

#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "Clip.h"

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "makeclip WIDTH HEIGHT COUNT FILE\n";
        return 1;
    }
    try {
        std::ofstream file(argv[4], std::ios::binary);
        file.exceptions(std::ios::failbit | std::ios::badbit);
        const auto count = static_cast<size_t>(std::stoi(argv[3]));
        for (const auto& unit : GenerateClip(std::stoi(argv[1]), std::stoi(argv[2]), count).units) {
            file.write(reinterpret_cast<const char*>(unit->data), unit->size);
        }
    } catch (const std::exception& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}
