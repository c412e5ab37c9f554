#include "faces/qt/printing/faxpictures.h"

#include "codecs/faxencoder.h"

namespace pixmo::qt {

void FaxPictures::add(const Raster& picture) {
    const auto fax = encodeFax4(picture);
    const auto size = static_cast<qsizetype>(fax.size());
    Picture entry = {picture.width, picture.height, size, 0};
    const bool isOpen = file_.isOpen() || file_.open();
    entry.offset = file_.size();
    if (!isOpen || !file_.seek(entry.offset) ||
        file_.write(reinterpret_cast<const char*>(fax.data()), size) != size)
        entry.size = 0;
    pictures_.push_back(entry);
}

QByteArray FaxPictures::bytes(const Picture& picture) {
    const QByteArray bytes = file_.seek(picture.offset) ? file_.read(picture.size) : QByteArray();
    return bytes.size() == picture.size ? bytes : QByteArray();
}

} // namespace pixmo::qt
