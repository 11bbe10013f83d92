#include <filesystem>

#include "Interrupt.h"
#include "parts/Joiners.h"
#include "support/NumberedPath.h"
#include "support/ToolError.h"

namespace {

namespace fs = std::filesystem;

/// Another name for the same file where the file system has that, else a copy.
void Link(const std::string& from, const std::string& to, Existing existing) {
    PendingFile pending(to, existing);
    std::error_code error;
    fs::remove(pending.Path(), error);
    fs::create_hard_link(from, pending.Path(), error);
    if (error) {
        fs::copy_file(from, pending.Path(), fs::copy_options::overwrite_existing, error);
    }
    if (error) {
        throw ToolError(to + ": cannot be written: " + error.message());
    }
    pending.Commit();
}

}  // namespace

std::optional<int64_t> JoinPictures(const std::string& out, Existing existing, const Parts& parts) {
    const NumberedPath joined(out);
    int number = 0;
    CreateDirectoryOf(joined.At(1));
    for (const PartRecord& part : parts) {
        const NumberedPath pictures(part.out);
        for (int i = 1; i <= part.frames; ++i) {
            if (Interrupted()) {
                return std::nullopt;
            }
            Link(pictures.At(i), joined.At(++number), existing);
        }
    }
    return number;
}
