#include "tests/codecs/pictures.h"

#include "core/base/files.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace pixmo {

namespace {

const std::filesystem::path Folder = PIXMO_PICTURES;

} // namespace

std::vector<StoredPicture> storedPictures() {
    std::ifstream table(Folder / "pictures.txt");
    std::vector<StoredPicture> pictures;
    std::string line;
    std::getline(table, line); // the titles of the columns
    while (std::getline(table, line)) {
        StoredPicture row;
        std::istringstream(line) >> row.file >> row.format >> row.bits >> row.xResolution >>
            row.yResolution >> row.colours >> row.tolerance >> row.seen;
        pictures.push_back(row);
    }
    return pictures;
}

std::vector<uint8_t> storedBytes(const std::string& file) {
    return readFile(Folder / file);
}

} // namespace pixmo
