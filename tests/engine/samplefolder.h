#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pixmo {

/// A folder of documents for one test, removed after it.
class SampleFolder {
public:
    SampleFolder();
    ~SampleFolder();
    SampleFolder(const SampleFolder&) = delete;
    SampleFolder& operator=(const SampleFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// Makes the folders that are missing.
    void write(const std::filesystem::path& name, const std::vector<uint8_t>& bytes) const;
    void write(const std::filesystem::path& name, const std::string& text) const;

private:
    std::filesystem::path path_;
};

/// Bytes that are not the same backwards, different for each seed.
std::vector<uint8_t> sampleBytes(size_t size, unsigned seed = 1);

} // namespace pixmo
