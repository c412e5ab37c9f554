#include "apps/engine/documentstore.h"

#include "apps/engine/naturalorder.h"
#include "apps/engine/tiffframes.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "core/base/text.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

namespace pixmo {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 7> PictureExtensions = {".TIF", ".TIFF", ".JPG", ".JPEG",
                                                               ".PNG", ".GIF",  ".BMP"};
constexpr std::string_view PropertiesFile = "properties.txt";
constexpr uintmax_t LargestPropertiesFile = 65536;
constexpr uintmax_t LargestPage = std::numeric_limits<int32_t>::max();

bool isPictureName(const fs::path& name) {
    const std::string extension = upperCase(name.extension().string());
    return !name.string().starts_with('.') && std::find(PictureExtensions.begin(), PictureExtensions.end(),
                                                        extension) != PictureExtensions.end();
}

bool isTiffName(const fs::path& name) {
    return upperCase(name.extension().string()).starts_with(".TIF");
}

/// The file as it is, unless it is missing, empty or larger than `most` bytes.
std::optional<std::vector<uint8_t>> wholeFile(const fs::path& file, uintmax_t most) {
    std::error_code problem;
    const auto size = fs::file_size(file, problem);
    if (problem || size == 0 || size > most)
        return std::nullopt;
    try {
        return readFile(file);
    } catch (const Error&) {
        return std::nullopt;
    }
}

size_t frameCount(const std::vector<fs::path>& files) {
    return files.size() == 1 && isTiffName(files.front()) ? countTiffFrames(files.front()) : 0;
}

} // namespace

DocumentStore::DocumentStore(const fs::path& root) {
    std::error_code problem;
    root_ = fs::canonical(root, problem);
    if (problem || !fs::is_directory(root_, problem))
        throw std::runtime_error("There is no folder of documents at '" + root.string() + "'.");
}

std::optional<size_t> DocumentStore::pageCount(int32_t document) const {
    const auto documentFolder = folder(document);
    if (!documentFolder)
        return std::nullopt;
    const auto files = pictures(*documentFolder);
    return std::max(files.size(), frameCount(files));
}

std::optional<std::vector<uint8_t>> DocumentStore::page(int32_t document, size_t page) const {
    const auto documentFolder = folder(document);
    if (!documentFolder || page == 0)
        return std::nullopt;
    const auto files = pictures(*documentFolder);
    if (frameCount(files) > 1)
        return frames_.frame(files.front(), page - 1);
    return page <= files.size() ? wholeFile(files[page - 1], LargestPage) : std::nullopt;
}

std::vector<Property> DocumentStore::properties(int32_t document) const {
    std::vector<Property> found;
    const auto documentFolder = folder(document);
    const auto file = documentFolder ? inside(*documentFolder / PropertiesFile) : std::nullopt;
    const auto bytes = file ? wholeFile(*file, LargestPropertiesFile) : std::nullopt;
    if (!bytes)
        return found;
    for (std::string& line : split(std::string(bytes->begin(), bytes->end()), "\n")) {
        if (line.ends_with('\r'))
            line.pop_back();
        if (auto property = parseProperty(line))
            found.push_back(std::move(*property));
    }
    return found;
}

std::optional<fs::path> DocumentStore::folder(int32_t document) const {
    std::error_code problem;
    const fs::path path = fs::weakly_canonical(root_ / std::to_string(document), problem);
    if (document < 1 || problem || path == root_ || !fs::is_directory(path, problem) ||
        std::mismatch(root_.begin(), root_.end(), path.begin(), path.end()).first != root_.end())
        return std::nullopt;
    return path;
}

std::vector<fs::path> DocumentStore::pictures(const fs::path& folder) const {
    std::vector<fs::path> files;
    std::error_code problem;
    for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end;
         entry.increment(problem)) {
        if (!isPictureName(entry->path().filename()))
            continue;
        std::error_code gone;
        // A plain file of a folder below the root needs no further look.
        if (entry->is_symlink(gone) ? inside(entry->path()).has_value() : entry->is_regular_file(gone))
            files.push_back(entry->path());
    }
    std::sort(files.begin(), files.end(), [](const fs::path& left, const fs::path& right) {
        return naturallyBefore(left.filename().string(), right.filename().string());
    });
    return files;
}

std::optional<fs::path> DocumentStore::inside(const fs::path& path) const {
    std::error_code problem;
    const fs::path real = fs::weakly_canonical(path, problem);
    if (problem || !fs::is_regular_file(real, problem) ||
        std::mismatch(root_.begin(), root_.end(), real.begin(), real.end()).first != root_.end())
        return std::nullopt;
    return real;
}

} // namespace pixmo
