#include "faces/qt/programicon.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPolygonF>

namespace pixmo::qt {

namespace {

constexpr double Grid = 32;

/// On a grid of 32 by 32: a page with a turned corner, a headline and lines of text.
void paintPage(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x44, 0x55, 0x66), 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF({{6, 2.5}, {19, 2.5}, {26, 9.5}, {26, 29.5}, {6, 29.5}}));
    painter.setBrush(QColor(0xD5, 0xDE, 0xE6));
    painter.drawPolygon(QPolygonF({{19, 2.5}, {26, 9.5}, {19, 9.5}}));
    painter.fillRect(QRectF(9.5, 7, 6, 3), QColor(0x1F, 0x6F, 0xB2));
    for (const double y : {14.0, 17.5, 21.0, 24.5})
        painter.fillRect(QRectF(9.5, y, y > 24 ? 8 : 13, 1.4), QColor(0x77, 0x88, 0x99));
}

} // namespace

QIcon programIcon() {
    QIcon icon = QGuiApplication::windowIcon();
    if (!icon.isNull())
        return icon;
    for (const int size : {16, 32, 48, 64, 128, 192}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.scale(size / Grid, size / Grid);
        paintPage(painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace pixmo::qt
