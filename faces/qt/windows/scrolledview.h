#pragma once

#include "core/drawing/textrun.h"
#include "core/imaging/viewgeometry.h"
#include "core/raster/raster.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <functional>
#include <vector>

class QScrollBar;

namespace pixmo::qt {

/// An area whose pixels the core paints and whose scroll bars are the core's; takes the keyboard.
class ScrolledView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit ScrolledView(QWidget* parent);

    /// The viewport's size in device pixels.
    QSize deviceSize() const { return deviceSize(viewport()->size()); }
    /// One of the Pointer codes.
    void setPointer(int32_t code);

protected:
    using Paint = std::function<std::vector<TextRun>(const PixelSurface&, const TextMeasure&)>;

    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    /// The user has moved a scroll bar.
    virtual void scrolled() = 0;

    QSize deviceSize(QSize size) const;
    QPointF devicePoint(QPointF point) const { return point * devicePixelRatioF(); }
    /// Has the viewport's pixels painted, writes upon them what is returned and shows them.
    void paintBy(const Paint& paint);
    static void mirror(QScrollBar& bar, const ScrollBar& source);

    bool mirroring_ = false; ///< the scroll bars follow the core, not the user

private:
    TextMeasure measure() const;
    void write(QPainter& painter, const TextRun& run) const;
    QFont fontOf(bool bold) const;

    QImage image_;
};

} // namespace pixmo::qt
