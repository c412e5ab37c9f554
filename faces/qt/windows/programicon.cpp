#include "faces/qt/windows/programicon.h"

#include "core/drawing/programpicture.h"

#include <QGuiApplication>
#include <QPixmap>
#include <vector>

namespace pixmo::qt {

QIcon programIcon() {
    QIcon icon = QGuiApplication::windowIcon();
    if (!icon.isNull())
        return icon;
    for (const int size : {16, 32, 48, 64, 128, 192}) {
        const std::vector<uint32_t> pixels = programPicture(size);
        const QImage image(reinterpret_cast<const uchar*>(pixels.data()), size, size,
                           QImage::Format_ARGB32_Premultiplied);
        // A pixmap shares the memory of its image, which ends here.
        icon.addPixmap(QPixmap::fromImage(image.copy()));
    }
    return icon;
}

} // namespace pixmo::qt
