#pragma once

#include "core/thumbs/dlgthumbs.h"

#include <QPalette>
#include <QRectF>

class QPainter;

namespace pixmo::qt {

class ThumbsView;

/// Paints the thumbnails that are to be seen.
class ThumbPainter {
public:
    ThumbPainter(const ThumbsView& view, dlgThumbs& thumbs, QPainter& painter);

    void paint();

private:
    void paintItem(int item);
    void paintSelection(const QRect& cell);
    QRectF pictureRoom(const QRect& cell) const;
    QRectF paintPicture(const ThumbPicture& picture, const QRectF& room);
    QRectF paintOutline(const QRectF& room);
    void paintBorder(const QRectF& page);
    void paintCurrent(const QRectF& page);
    void paintWaiting(const QRectF& page);
    void paintBroken(const QRectF& page);
    void paintNumber(int item, const QRect& cell);
    void paintBand();
    QRectF aligned(const QRectF& rectangle) const;
    QColor colour(QPalette::ColorRole role) const;

    const ThumbsView& view_;
    dlgThumbs& thumbs_;
    QPainter& painter_;
    double ratio_;
};

} // namespace pixmo::qt
