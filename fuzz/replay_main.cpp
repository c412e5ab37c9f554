// Runs a fuzz target over every file of its corpus: what a fuzzer once found stays found.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    if (argc != 2 || !fs::is_directory(argv[1])) {
        std::fprintf(stderr, "usage: %s corpus-folder\n", argv[0]);
        return 2;
    }
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(argv[1]))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const fs::path& path : files) {
        std::ifstream file(path, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::printf("%s: %zu bytes\n", path.filename().string().c_str(), bytes.size());
        std::fflush(stdout); // the last line names the file that brings the target down
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    }
    if (files.empty())
        std::fprintf(stderr, "%s is empty\n", argv[1]);
    return files.empty() ? 1 : 0;
}
