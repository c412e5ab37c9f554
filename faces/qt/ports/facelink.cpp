#include "faces/qt/ports/facelink.h"

#include <QApplication>
#include <QWidget>

namespace pixmo::qt {

QWidget* FaceLink::top() const {
    QWidget* const modal = QApplication::activeModalWidget();
    for (const QWidget* each = modal; each; each = each->parentWidget())
        if (each == owner)
            return modal;
    return owner;
}

} // namespace pixmo::qt
