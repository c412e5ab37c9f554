#include "faces/qt/commandicon.h"

#include "icons/commandicon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <string>
#include <utility>

namespace pixmo::qt {

namespace {

/// Any size is drawn anew, in the palette's colour of that moment.
class CoverageEngine : public QIconEngine {
public:
    explicit CoverageEngine(std::string key) : key_(std::move(key)) {}

    QIconEngine* clone() const override { return new CoverageEngine(key_); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal ratio = painter->device()->devicePixelRatio();
        const int side = qRound(std::min(rect.width(), rect.height()) * ratio);
        QImage image = picture(side, mode);
        image.setDevicePixelRatio(ratio);
        painter->drawImage(rect.topLeft(), image);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        return QPixmap::fromImage(picture(std::min(size.width(), size.height()), mode));
    }

private:
    QImage picture(int side, QIcon::Mode mode) const {
        const auto coverage = pixmo::commandIcon(key_, side);
        if (coverage.empty())
            return {};
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(colourOf(mode));
        const QImage alpha(coverage.data(), side, side, side, QImage::Format_Alpha8);
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, alpha);
        return image;
    }

    static QColor colourOf(QIcon::Mode mode) {
        const auto palette = QGuiApplication::palette();
        if (mode == QIcon::Selected)
            return palette.color(QPalette::HighlightedText);
        return palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                             QPalette::ButtonText);
    }

    std::string key_;
};

} // namespace

QIcon commandIcon(const QString& key) {
    auto name = key.toStdString();
    return hasCommandIcon(name) ? QIcon(new CoverageEngine(std::move(name))) : QIcon();
}

} // namespace pixmo::qt
