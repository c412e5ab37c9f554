#include "codecs/faxpictures.h"

#include "codecs/faxencoder.h"

namespace pixmo {

void FaxPictures::add(const Raster& picture) {
    const auto fax = encodeFax4(picture);
    Picture entry{picture.width, picture.height, 0, {}};
    if (!file_)
        file_.reset(std::tmpfile());
    if (file_ && std::fseek(file_.get(), 0, SEEK_END) == 0 && std::fgetpos(file_.get(), &entry.place) == 0 &&
        std::fwrite(fax.data(), 1, fax.size(), file_.get()) == fax.size())
        entry.size = fax.size();
    pictures_.push_back(entry);
}

std::string FaxPictures::bytes(const Picture& picture) {
    std::string bytes(picture.size, '\0');
    if (picture.size == 0 || std::fsetpos(file_.get(), &picture.place) != 0 ||
        std::fread(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size())
        bytes.clear();
    return bytes;
}

} // namespace pixmo
