#include "core/base/files.h"

#include "core/base/error.h"

#include <fstream>
#include <system_error>

namespace pixmo {

namespace fs = std::filesystem;

bool fileExists(const fs::path& path) {
    std::error_code problem;
    const auto size = fs::file_size(path, problem);
    return !problem && size != static_cast<std::uintmax_t>(-1);
}

std::vector<uint8_t> readFile(const fs::path& path) {
    if (!fileExists(path))
        throw fileNotFoundError();
    std::vector<uint8_t> bytes(static_cast<size_t>(fs::file_size(path)));
    std::ifstream file(path, std::ios::binary);
    if (!file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size())))
        throw pathFileAccessError();
    return bytes;
}

void writeFile(const fs::path& path, std::span<const uint8_t> bytes) {
    std::error_code ignored;
    fs::remove(path, ignored);
    std::ofstream file(path, std::ios::binary);
    if (!file)
        throw pathFileAccessError();
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw diskFullError();
}

} // namespace pixmo
