#include "tests/engine/samplefolder.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <stdexcept>

namespace pixmo {

namespace fs = std::filesystem;

SampleFolder::SampleFolder() {
    std::string name = (fs::temp_directory_path() / "engine-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no folder for the test");
    path_ = fs::canonical(name);
}

SampleFolder::~SampleFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void SampleFolder::write(const fs::path& name, const std::vector<uint8_t>& bytes) const {
    write(name, std::string(bytes.begin(), bytes.end()));
}

void SampleFolder::write(const fs::path& name, const std::string& text) const {
    fs::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << text;
}

std::vector<uint8_t> sampleBytes(size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<uint8_t> bytes(size);
    for (uint8_t& byte : bytes)
        byte = static_cast<uint8_t>(random());
    return bytes;
}

} // namespace pixmo
