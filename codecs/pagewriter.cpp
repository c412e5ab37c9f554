#include "codecs/pagewriter.h"

#include "codecs/pngwriter.h"
#include "codecs/tiffwriter.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "core/base/text.h"

#include <random>
#include <string>
#include <system_error>

namespace pixmo {

namespace fs = std::filesystem;

namespace {

/// Removes the file under its first name unless it has been moved.
class PartFile {
public:
    explicit PartFile(const fs::path& target) : path_(target) {
        path_ += "." + std::to_string(std::random_device()()) + ".part";
    }
    ~PartFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

/// A link stays a link: what it names is replaced.
fs::path linkedFile(const fs::path& path) {
    std::error_code problem;
    const fs::path file = fs::is_symlink(path, problem) ? fs::canonical(path, problem) : path;
    return problem ? path : file;
}

} // namespace

void PageFileWriter::write(const Raster& page, const fs::path& path) const {
    const bool asPng = upperCase(path.extension().string()) == ".PNG";
    const std::vector<uint8_t> bytes = asPng ? encodePng(page) : encodeTiff(page);
    const fs::path target = linkedFile(path);
    const PartFile part(target);
    writeFile(part.path(), bytes);
    std::error_code problem;
    fs::rename(part.path(), target, problem);
    if (problem)
        throw pathFileAccessError();
}

} // namespace pixmo
