#include "parts/Fingerprint.h"

extern "C" {
#include <libavutil/md5.h>
#include <libavutil/mem.h>
}

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <memory>
#include <sstream>
#include <vector>

namespace {

struct FreeAv {
    void operator()(AVMD5* hash) const { av_free(hash); }
};

/// Parts of a large file: its head, its middle and its end, where formats have their indexes.
std::vector<char> Samples(const std::string& path, uintmax_t size) {
    constexpr uintmax_t kSample = 1 << 18;
    constexpr int kSamples = 3;
    std::ifstream file(path, std::ios::binary);
    std::vector<char> bytes;
    for (int i = 0; i < kSamples; ++i) {
        const uintmax_t rest = size > kSample ? size - kSample : 0;
        std::vector<char> sample(kSample);
        file.clear();
        file.seekg(static_cast<std::streamoff>(rest / (kSamples - 1) * static_cast<unsigned>(i)));
        file.read(sample.data(), static_cast<std::streamsize>(sample.size()));
        bytes.insert(bytes.end(), sample.begin(), sample.begin() + file.gcount());
    }
    return bytes;
}

}  // namespace

std::string Fingerprint(const std::string& path) {
    constexpr size_t kHashBytes = 16;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return {};
    }
    const uintmax_t size = std::filesystem::file_size(path, error);
    const std::vector<char> bytes = Samples(path, size);
    std::array<uint8_t, kHashBytes> hash{};
    av_md5_sum(hash.data(), reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    std::ostringstream text;
    text << size << " bytes, " << std::hex << std::setfill('0');
    for (const uint8_t byte : hash) {
        text << std::setw(2) << unsigned{byte};
    }
    return text.str();
}
